// What the header of an audio file tells of its audio. No tool is run. Any thread.
#pragma once

#include "encode/AudioFormatObject.h"

#include <QString>

#include <optional>

namespace zolt {

/// Rate, depth, channels and length as the file's header tells them. @return nothing for a file that cannot be read or
/// is of a kind that does not tell them, such as Shorten
std::optional<AudioFormatObject> audioFormatOf(const QString& path);

} // namespace zolt
