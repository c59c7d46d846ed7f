// Looks at ID3v2 tags before the tag library does.
#pragma once

#include <QString>

namespace zolt {

/// Where the library looks for a tag outside the chunks of AIFF files.
enum class Id3Place {
    Start,      ///< at the first byte alone
    BeforeSound ///< at the first byte, or behind other bytes up to the first frame of MPEG sound
};

/// False if the file holds an ID3v2 tag on which the library would end the program or fill the memory: chapters inside
/// chapters, which it follows to the end of the stack, or large compressed frames, which it inflates without a limit.
/// True for every other file, readable or not. Any thread.
bool hasHarmlessFrames(const QString& path, Id3Place place);

} // namespace zolt
