// Text files that people wrote, in whatever encoding.
#pragma once

#include "platform/text/Text.h"

namespace zolt {

/// How the last line of the log about an unreadable file ends.
enum class UnreadableLine {
    PathAndReason,    ///< "Could not open file...PATH REASON"
    PathTextAndReason ///< the same with the text between the two, of which there is none: two blanks
};

/// The whole text of a file, opened with three tries: by the byte-order mark at its start (UTF-8, UTF-16 or UTF-32),
/// as UTF-8, as ASCII. Each try is strict, and the log tells why it failed before the next one. A mark is no part of
/// the text. Files of more than 64 MiB, folders and pipes are refused. Blocks; any thread.
/// @return absent if no try gave a text
OptionalText readTextInThreeTries(const QString& path, UnreadableLine line);

/// What to do about a file that gave no text, for a person: "show.cue is not UTF-8; save it as UTF-8", or why it could
/// not be opened at all. Blocks; any thread.
QString unreadableTextInWords(const QString& path);

} // namespace zolt
