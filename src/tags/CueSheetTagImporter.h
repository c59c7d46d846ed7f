// Album, artist and track names out of a cue sheet.
#pragma once

#include "tags/TagsObject.h"

#include <memory>

namespace zolt {

/// Knows four things in a cue sheet and no more. Holds no state: make one for each call. Main thread.
class CueSheetTagImporter
{
public:
    /// The value of "source" in the user info of the notification that carries the names.
    static const QString source;

    /// Asks for a cue sheet. @return its path, or nothing
    OptionalText chooseCueFile() const;

    /// Asks for a cue sheet and reads it; posts its track names, none as well, as
    /// Constants::ZOLTTrackNamesEnteredNotification.
    /// @return a record with album and artist as far as they were found; no object if there is no text to read
    std::shared_ptr<TagsObject> loadTagsFromCueSheet() const;
    /// As that, without asking.
    std::shared_ptr<TagsObject> loadTagsFromPath(const QString& path) const;
};

} // namespace zolt
