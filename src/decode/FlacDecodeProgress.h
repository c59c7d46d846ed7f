// What flac prints while it decodes.
#pragma once

#include "platform/text/Text.h"

namespace zolt {

/// One reading of a piece of console text.
struct ConsoleProgress
{
    static constexpr double none = -1.0; ///< a piece without the marker; goes to the bar as it stands

    double value = none;
    OptionalText number; ///< the tool's own digits, for the status line
};

/// Reads "name.flac: 42% complete, ...": the number is what stands between the first ": " and the next "%".
/// A piece with several updates gives the first; a name that holds ": " moves the number out of reach.
/// @param text  a trimmed piece
/// @throws RangeException for a text that holds "% " and no ": "
ConsoleProgress flacDecodeProgress(const QString& text);

} // namespace zolt
