#include "audio/WavHeader.h"

#include "audio/Failure.h"

#include <string_view>

namespace zolt::companion {

namespace {

constexpr std::uint64_t behindRiffSize = 36; // of the header, ahead of the samples
constexpr std::uint64_t mostData = 0xfffffffe - behindRiffSize;

void append(Bytes& to, std::string_view text)
{
    for (const char unit : text)
        to.push_back(std::uint8_t(unit));
}

} // namespace

Bytes wavHeader(const PcmFormat& format, std::uint64_t dataBytes, const std::string& name)
{
    if (dataBytes > mostData) throw Failure(Fault::Format, name + ": is too long for a WAV file, which ends at 4 GiB");
    Bytes header;
    append(header, "RIFF");
    appendLittleEndian(header, behindRiffSize + dataBytes + dataBytes % 2, 4);
    append(header, "WAVE");
    append(header, "fmt ");
    appendLittleEndian(header, 16, 4);
    appendLittleEndian(header, 1, 2);
    appendLittleEndian(header, format.channels, 2);
    appendLittleEndian(header, format.rate, 4);
    appendLittleEndian(header, std::uint64_t(format.rate) * format.frameBytes(), 4);
    appendLittleEndian(header, format.frameBytes(), 2);
    appendLittleEndian(header, format.bits, 2);
    append(header, "data");
    appendLittleEndian(header, dataBytes, 4);
    return header;
}

} // namespace zolt::companion
