// Names for temporary files, and the deletion of files as the user's setting says.
#pragma once

#include "platform/text/Text.h"

namespace zolt {

/// Class operations alone, with no state; any thread.
class Util
{
public:
    Util() = delete;

    /// Whether the setting "trashOrDelete" has deleteFile move to the trash.
    static bool deletesToTrash();

    /// Removes a file for good, or moves it to the trash if the setting "trashOrDelete" is not 0; the setting is read
    /// on each call. Whether that worked is not told.
    static void deleteFile(const QString& path);

    /// The name that generateTempFileNameExtension starts from, with XXXXXXXX still in it. Makes no file.
    /// @throws AssertionException as generateTempFileNameExtension, but for the making of the file
    static QString generateTempFileName2Extension(const OptionalText& directory, const OptionalText& extension);

    /// Makes an empty file of a new name, which only the user can read, and returns its path.
    /// @param directory  absent for the system's directory of temporary files
    /// @param extension  without a dot
    /// @throws AssertionException if an argument is missing, or with the system's text if no file can be made
    static QString generateTempFileNameExtension(const OptionalText& directory, const OptionalText& extension);
};

} // namespace zolt
