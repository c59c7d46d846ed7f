#include "tags/ZOLTCustomTagsPanel.h"

#include "platform/desktop/Interfaces.h"
#include "platform/desktop/Panels.h"

namespace zolt {

ZOLTCustomTagsPanel::ZOLTCustomTagsPanel()
{
    for (auto* const fields : {&names_, &values_})
        std::generate(fields->begin(), fields->end(), [] { return std::make_shared<TextField>(); });
}

void ZOLTCustomTagsPanel::runPanel()
{
    if (!panel_) {
        panel_ = std::make_shared<Window>();
        panel_->setTitle(QStringLiteral("Custom Tags"));
        loadInterface(QStringLiteral("CustomTagsPanel"), this);
    }
    if (!customTagDictionary_) customTagDictionary_.emplace();
    panel_->makeKeyAndOrderFront();
    panels().runModalForWindow(*panel_);
    panel_->orderOut();
    fillTagsDictionary();
}

void ZOLTCustomTagsPanel::stop(Sender)
{
    panels().stopModal();
}

void ZOLTCustomTagsPanel::fillTags(const std::optional<CustomTags>& tags)
{
    if (!tags) return;
    if (!customTagDictionary_) customTagDictionary_.emplace();
    int count = 0;
    for (const auto& [name, value] : tags->asKeyValueRange()) {
        customTagDictionary_->insert(name, value);
        setValueValueCount(name, value, ++count);
    }
}

void ZOLTCustomTagsPanel::fillTagsDictionary()
{
    customTagDictionary_.emplace();
    for (int count = 1; count <= pairCount; ++count)
        customTagDictionary_->insert(stringValue(nameText(count)->stringValue()),
                                     stringValue(valueText(count)->stringValue()));
}

void ZOLTCustomTagsPanel::clearTags()
{
    for (int count = 1; count <= pairCount; ++count)
        setValueValueCount(QString(), QString(), count);
}

void ZOLTCustomTagsPanel::setValueValueCount(const QString& name, const QString& value, int count)
{
    if (count < 1 || count > pairCount) return;
    nameText(count)->setStringValue(name);
    valueText(count)->setStringValue(value);
}

QString ZOLTCustomTagsPanel::stringValue(const OptionalText& text) const
{
    return trimmed(textOrEmpty(text), CharacterSet::WhiteSpaceAndNewlines);
}

} // namespace zolt
