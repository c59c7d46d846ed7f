// The panel with up to eight free pairs of a tag's name and value.
#pragma once

#include "platform/controls/TextField.h"
#include "platform/controls/Window.h"
#include "shell/Outlet.h"
#include "tags/TagsObject.h"

#include <memory>
#include <optional>

namespace zolt {

/// Cannot be cancelled: its texts are taken however it is closed. Main thread.
class ZOLTCustomTagsPanel
{
public:
    static constexpr int pairCount = 8;

    ZOLTCustomTagsPanel() = default;
    ZOLTCustomTagsPanel(const ZOLTCustomTagsPanel&) = delete;
    ZOLTCustomTagsPanel& operator=(const ZOLTCustomTagsPanel&) = delete;

    /// Shows the panel, waits for its end, and takes its texts into the dictionary.
    void runPanel();
    /// Ends the run; so does closing the window.
    void stop(Sender sender);
    void windowWillClose() { stop(nullptr); }
    /// Shows the first eight pairs of the map and adds all of them to the dictionary; nothing without a map.
    void fillTags(const std::optional<CustomTags>& tags);
    /// Makes the dictionary anew from the sixteen texts, trimmed. Kept: blank pairs are one entry of empty texts.
    void fillTagsDictionary();
    /// What fillTagsDictionary would make of the texts now.
    CustomTags tagsInTexts() const;
    /// Empties the texts; the dictionary stays.
    void clearTags();
    /// Sets a pair. @param count  1 to 8; any other does nothing
    void setValueValueCount(const QString& name, const QString& value, int count);
    /// The text without white space around it; empty for none.
    QString stringValue(const OptionalText& text) const;

    /// Absent until the panel was opened, or a file's custom tags were shown.
    const std::optional<CustomTags>& customTagDictionary() const { return customTagDictionary_; }
    void setCustomTagDictionary(std::optional<CustomTags> tags) { customTagDictionary_ = std::move(tags); }

    /// A pair's fields. @param count  1 to 8
    const std::shared_ptr<TextField>& nameText(int count) const;
    const std::shared_ptr<TextField>& valueText(int count) const;
    /// The sixteen fields by their names.
    Outlets outlets() const;
    /// None until the panel has run once.
    const std::shared_ptr<Window>& panel() const { return panel_; }

    // Outlets.
    std::shared_ptr<TextField> customTagNameText1 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText1 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagNameText2 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText2 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagNameText3 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText3 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagNameText4 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText4 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagNameText5 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText5 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagNameText6 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText6 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagNameText7 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText7 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagNameText8 = std::make_shared<TextField>();
    std::shared_ptr<TextField> customTagValueText8 = std::make_shared<TextField>();

private:
    std::shared_ptr<Window> panel_;
    std::optional<CustomTags> customTagDictionary_;
};

} // namespace zolt
