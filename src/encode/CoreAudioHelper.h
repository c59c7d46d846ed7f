// What an audio file is, told from its data and never from its extension. No state; any thread.
#pragma once

#include "encode/AudioFormatObject.h"

#include <QString>

#include <memory>

namespace zolt {

class CoreAudioHelper
{
public:
    /// Rate, depth, channels and length of the file's audio; an Apple Lossless file tells the depth of its source.
    /// @return nothing on any failure; no message is shown
    static std::shared_ptr<AudioFormatObject> getFormatInfo(const QString& path);

    /// True for big-endian signed integers without gaps, as AIFF files hold. Any failure is a no.
    static bool isAiff(const QString& path);
    /// True for little-endian signed integers without gaps, as WAV files hold. Any failure is a no.
    static bool isWav(const QString& path);
    /// True for either of the two.
    static bool isAiffOrWav(const QString& path);
    /// True if the file's audio is Apple Lossless. Any failure is a no.
    static bool isAppleLossless(const QString& path);
};

} // namespace zolt
