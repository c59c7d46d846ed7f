// Which helper reads and writes the tags of a file, by its extension.
#pragma once

#include "tags/RoomToSave.h"
#include "tags/TagsObject.h"

#include <memory>

namespace zolt {

/// One kind of file. Both operations block, on any thread, and @throw what their helpers throw.
struct TagRoute
{
    QString extension; ///< upper case
    std::shared_ptr<TagsObject> (*read)(const QString& path);
    SaveRefusal (*write)(const QString& path, const TagsObject& tags, bool writeEmptyTags);
};

/// The file's route; nothing (null) for an extension without one, whatever its case.
const TagRoute* tagRouteFor(const QString& path);

} // namespace zolt
