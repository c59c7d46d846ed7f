// FLAC files for tests, made with the installed tools.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt::test {

/// Makes a FLAC file: 44100 Hz, 16 bits, two channels of noise, so that its size is near that of the WAV.
/// @param tags  vorbis comments such as "TITLE=A"
void makeFlac(const QString& path, double seconds = 0.1, const QStringList& tags = {});

/// Damages bytes in the middle of the file: its decoding fails.
void damage(const QString& path);

} // namespace zolt::test
