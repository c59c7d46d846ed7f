#include "tags/CueSheetTagImporter.h"

#include "platform/desktop/Panels.h"
#include "platform/files/TextFile.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

/// What stands behind the keyword, without the quotes around it.
QString valueBehind(const QString& keyword, const QString& line)
{
    QStringView value = QStringView(line).sliced(keyword.size()).trimmed();
    while (value.startsWith(u'"'))
        value = value.sliced(1);
    while (value.endsWith(u'"'))
        value.chop(1);
    return value.toString();
}

/// Walks the lines of one cue sheet.
class Walk
{
public:
    void take(const QString& line)
    {
        if (inHeader_) takeHeader(line);
        if (!inHeader_ && zoltStartsWith(line, u"TITLE "_s)) names.append(valueBehind(u"TITLE "_s, line));
    }

    TagsObject tags;
    QStringList names;

private:
    /// Kept: in the header the keyword may go on, and only this very number and kind of a track ends it.
    void takeHeader(const QString& line)
    {
        if (zoltStartsWith(line, u"TRACK 01 AUDIO"_s)) inHeader_ = false;
        if (zoltStartsWith(line, u"TITLE"_s)) tags.setAlbumText(valueBehind(u"TITLE"_s, line));
        if (zoltStartsWith(line, u"PERFORMER"_s)) tags.setArtistText(valueBehind(u"PERFORMER"_s, line));
    }

    bool inHeader_ = true;
};

} // namespace

const QString CueSheetTagImporter::source = u"CueSheetTagImporter"_s;

OptionalText CueSheetTagImporter::chooseCueFile() const
{
    const auto chosen = panels().openPanel({.title = u"Choose CUE file"_s, .fileTypes = {u"cue"_s}});
    if (!chosen || chosen->isEmpty()) return std::nullopt;
    return chosen->constFirst();
}

std::shared_ptr<TagsObject> CueSheetTagImporter::loadTagsFromCueSheet() const
{
    const OptionalText path = chooseCueFile();
    return path ? loadTagsFromPath(*path) : nullptr;
}

std::shared_ptr<TagsObject> CueSheetTagImporter::loadTagsFromPath(const QString& path) const
{
    const OptionalText text = readTextInThreeTries(path, UnreadableLine::PathAndReason);
    if (!text) return nullptr;
    Walk walk;
    const QStringList lines = splitIntoLines(*text);
    for (const QString& line : lines)
        walk.take(trimmed(line, CharacterSet::WhiteSpaceAndNewlines));
    NotificationCenter::standard().post(
        {Constants::ZOLTTrackNamesEnteredNotification, this, walk.names, {{u"source"_s, source}}});
    return std::make_shared<TagsObject>(walk.tags);
}

} // namespace zolt
