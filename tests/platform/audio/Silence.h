// A source that takes long to convert and no room on the disk.
#pragma once

#include "AudioSamples.h"

namespace zolt::test {

/// Makes a silent stereo WAV file of 16 bits, a hole but for its header. @return the path
inline QString silence(const QString& path, int64_t frames)
{
    auto bytes = waveFile(makeSamples(44100, 2, 16, 0));
    bytes.replace(4, 4, littleEndian(static_cast<uint64_t>(36 + frames * 4), 4));
    bytes.replace(40, 4, littleEndian(static_cast<uint64_t>(frames * 4), 4));
    writeFile(path, bytes);
    EXPECT_TRUE(QFile::resize(path, 44 + frames * 4));
    return path;
}

} // namespace zolt::test
