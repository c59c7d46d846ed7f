// Samples for the audio tests, made in code with headers written out by hand, so that what the program writes is
// compared with something that it had no part in.
#pragma once

#include "platform/audio/AudioFormat.h"

#include <QByteArray>
#include <QStringList>

namespace zolt::test {

/// Linear samples.
struct Samples
{
    double rate = 44100;
    uint32_t channels = 2;
    uint32_t bits = 16;
    int frames = 0;
    QByteArray little; ///< interleaved, signed, little endian, bits / 8 bytes each
};

/// A tone with noise over it, some stretches of full-scale noise and some of silence: every path of a lossless coder.
Samples makeSamples(double rate, uint32_t channels, uint32_t bits, int frames, uint32_t seed = 1);

/// The bytes of each sample turned round.
QByteArray swapped(const QByteArray& bytes, int bytesPerSample);

/// A WAV file: the plain header up to two channels, the extensible one with the usual speakers above; 8 bits unsigned.
QByteArray waveFile(const Samples& samples);
/// An AIFF file.
QByteArray aiffFile(const Samples& samples);

QByteArray littleEndian(uint64_t value, int bytes);
QByteArray bigEndian(uint64_t value, int bytes);

/// Writes the file. @return the path
QString writeFile(const QString& path, const QByteArray& bytes);
QByteArray fileBytes(const QString& path);

/// Runs a program. @return what it printed on standard output; a test failure if it does not end well
QByteArray runTool(const QString& program, const QStringList& arguments);

/// The file's audio as ffmpeg decodes it: signed little-endian samples of 16, 24 or 32 bits.
QByteArray decodedByFfmpeg(const QString& path, uint32_t bits);

/// Values of the file's audio stream as ffprobe prints them, in the order of its own choice.
QByteArray probed(const QString& path, const QString& entries);

/// The whole file through the service, in the client format given; a test failure on any status.
QByteArray readThroughService(const QString& path, const AudioFormat& client);

/// The length that the service states; -1 if it can't open the file.
int64_t statedLength(const QString& path);

} // namespace zolt::test
