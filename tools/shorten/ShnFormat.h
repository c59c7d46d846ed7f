// The facts of the Shorten format: a stream of bits, the highest of a byte first, in which most numbers are written as
// a run of zeros, a one and a fixed count of low bits.
#pragma once

#include "audio/PcmFormat.h"

#include <cstddef>

namespace zolt::companion::shn {

constexpr char magic[] = "ajkg"; // then a byte with the version

enum Command : unsigned {
    Diff0 = 0, ///< residuals against a constant
    Diff1 = 1, ///< ... against the last sample
    Diff2 = 2, ///< ... against the line through the last two
    Diff3 = 3, ///< ... against the curve through the last three
    Quit = 4,
    BlockSize = 5,
    BitShift = 6,
    Lpc = 7,
    Zero = 8,
    Verbatim = 9 ///< bytes that are no samples
};

/// How many low bits each kind of number has. A size writes its own count of low bits first.
namespace lowBits {
constexpr unsigned command = 2, size = 2, type = 4, channels = 0, blockSize = 8, lpcOrder = 2, means = 0, skipped = 1,
                   skippedByte = 7, energy = 3, bitShift = 2, lpcFactor = 5, verbatimCount = 5, verbatimByte = 8;
} // namespace lowBits

/// How samples are written by type: the types above 6 are of companded samples.
struct SampleType
{
    bool known = false;
    unsigned bytes = 0;
    bool isSigned = false, bigEndian = false;

    /// Where a channel's samples lie around before anything is known of it.
    int centre() const { return isSigned ? 0 : 1 << (8 * bytes - 1); }
    int lowest() const { return isSigned ? -(1 << (8 * bytes - 1)) : 0; }
    int highest() const { return lowest() + (1 << (8 * bytes)) - 1; }
};

constexpr SampleType sampleTypes[] = {
    {},
    {.known = true, .bytes = 1, .isSigned = true},
    {.known = true, .bytes = 1},
    {.known = true, .bytes = 2, .isSigned = true, .bigEndian = true},
    {.known = true, .bytes = 2, .bigEndian = true},
    {.known = true, .bytes = 2, .isSigned = true},
    {.known = true, .bytes = 2},
};
constexpr unsigned typeOfBytes = 2, typeOfWords = 5; // what WAV files hold

constexpr unsigned mostChannels = 8, mostBlockSize = 65535, mostLpcOrder = 255, mostMeans = 32768, mostShift = 31;
constexpr std::size_t keptSamples = 3; // of the last block, at least, for what the next is predicted from

} // namespace zolt::companion::shn
