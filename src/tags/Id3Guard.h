// Looks at ID3v2 tags before the tag library does.
#pragma once

#include "tags/Id3Bytes.h"

namespace zolt {

/// False for an ID3v2 tag on which the library would end the program or fill the memory: chapters inside
/// chapters, which it follows to the end of the stack, or frames that inflate to more than 32 MiB, which it does
/// without a limit. True for every other tag, and for none. Any thread.
bool hasHarmlessFrames(const Id3Bytes& tag);

/// False if the library ends its walk through the file's tag ahead of further frames: a frame with a wrong size or
/// without content, an extended header of another version. Saving such a tag would lose them. Any thread.
bool isReadWhole(const Id3Bytes& tag);

} // namespace zolt
