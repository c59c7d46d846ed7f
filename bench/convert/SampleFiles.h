// The files that are converted.
#pragma once

#include <QString>

namespace zolt::bench {

/// Writes a stereo WAV file of 16 bits at 44100 Hz: chords that swell and fade, over faint noise.
void writeMusic(const QString& path, int seconds);

} // namespace zolt::bench
