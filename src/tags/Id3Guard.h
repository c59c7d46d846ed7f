// Looks at ID3v2 tags before the tag library does.
#pragma once

#include <QString>

namespace zolt {

/// False if the file holds an ID3v2 tag on which the library would end the program or fill the memory: chapters inside
/// chapters, which it follows to the end of the stack, or large compressed frames, which it inflates without a limit.
/// True for every other file, readable or not. Any thread.
bool hasHarmlessFrames(const QString& path);

} // namespace zolt
