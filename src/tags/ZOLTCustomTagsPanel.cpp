#include "tags/ZOLTCustomTagsPanel.h"

#include "platform/desktop/Interfaces.h"
#include "platform/desktop/Panels.h"

namespace zolt {

namespace {

using Panel = ZOLTCustomTagsPanel;
using Field = std::shared_ptr<TextField> Panel::*;

constexpr Field names[Panel::pairCount] = {
    &Panel::customTagNameText1, &Panel::customTagNameText2, &Panel::customTagNameText3, &Panel::customTagNameText4,
    &Panel::customTagNameText5, &Panel::customTagNameText6, &Panel::customTagNameText7, &Panel::customTagNameText8};
constexpr Field values[Panel::pairCount] = {
    &Panel::customTagValueText1, &Panel::customTagValueText2, &Panel::customTagValueText3, &Panel::customTagValueText4,
    &Panel::customTagValueText5, &Panel::customTagValueText6, &Panel::customTagValueText7, &Panel::customTagValueText8};

} // namespace

const std::shared_ptr<TextField>& ZOLTCustomTagsPanel::nameText(int count) const
{
    return this->*names[count - 1];
}

const std::shared_ptr<TextField>& ZOLTCustomTagsPanel::valueText(int count) const
{
    return this->*values[count - 1];
}

Outlets ZOLTCustomTagsPanel::outlets() const
{
    Outlets all;
    for (int count = 1; count <= pairCount; ++count) {
        all.push_back({QStringLiteral("customTagNameText%1").arg(count), nameText(count)});
        all.push_back({QStringLiteral("customTagValueText%1").arg(count), valueText(count)});
    }
    return all;
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
    customTagDictionary_ = tagsInTexts();
}

CustomTags ZOLTCustomTagsPanel::tagsInTexts() const
{
    CustomTags tags;
    for (int count = 1; count <= pairCount; ++count)
        tags.insert(stringValue(nameText(count)->stringValue()), stringValue(valueText(count)->stringValue()));
    return tags;
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
