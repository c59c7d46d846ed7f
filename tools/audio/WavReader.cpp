#include "audio/WavReader.h"

#include "audio/Failure.h"

#include <algorithm>
#include <cstring>

namespace zolt::companion {

namespace {

constexpr std::size_t mostHeaderBytes = 16 << 20;
constexpr unsigned pcm = 1, extensible = 0xfffe;
constexpr std::size_t plainFormatBytes = 16, subformatAt = 24;
constexpr unsigned mostChannels = 8;
// What writers put where they cannot seek back: all ones, or the largest signed number less a page or so.
constexpr std::uint64_t openEnd = 0xffffffff, openEndOfPipes = 0x7ffff000;

bool isOpen(std::uint64_t size, const ByteSource& source)
{
    if (size == openEnd) return true;
    return !source.size() && (size == 0 || size >= openEndOfPipes);
}

bool stands(const std::uint8_t* at, const char* id)
{
    return std::memcmp(at, id, 4) == 0;
}

} // namespace

WavReader::WavReader(ByteSource& source) : source_(source)
{
    const Bytes start = source.peek(12);
    if (start.size() < 12 || !stands(start.data(), "RIFF") || !stands(start.data() + 8, "WAVE")) {
        refuse("is not a WAV file");
    }
    append(12);
    readChunks();
}

void WavReader::refuse(const std::string& why) const
{
    throw Failure(Fault::Format, source_.name() + ": " + why);
}

void WavReader::append(std::size_t count)
{
    if (header_.size() + count > mostHeaderBytes) refuse("is a WAV file with too much ahead of its samples");
    const Bytes more = source_.take(count);
    header_.insert(header_.end(), more.begin(), more.end());
}

void WavReader::readChunks()
{
    while (!readChunk())
        continue;
    if (format_.channels == 0) refuse("is a WAV file that does not say what its samples are");
}

/// True at the samples.
bool WavReader::readChunk()
{
    const std::size_t at = header_.size();
    append(8);
    const std::uint64_t size = littleEndian(&header_[at + 4], 4);
    if (stands(&header_[at], "data")) {
        if (!isOpen(size, source_)) dataBytes_ = size;
        return true;
    }
    append(std::size_t(size + size % 2));
    if (stands(&header_[at], "fmt ")) readFormat(&header_[at + 8], std::size_t(size));
    return false;
}

void WavReader::readFormat(const std::uint8_t* chunk, std::size_t size)
{
    if (size < plainFormatBytes) refuse("is a WAV file that does not say what its samples are");
    unsigned tag = unsigned(littleEndian(chunk, 2));
    if (tag == extensible && size >= subformatAt + 2) tag = unsigned(littleEndian(chunk + subformatAt, 2));
    format_.channels = unsigned(littleEndian(chunk + 2, 2));
    format_.rate = unsigned(littleEndian(chunk + 4, 4));
    format_.bits = unsigned(littleEndian(chunk + 14, 2) + 7) / 8 * 8; // 20 bits stand in 24
    if (tag != pcm) refuse("holds samples that are not PCM");
    if (format_.bits < 8 || format_.bits > 24) refuse("holds samples that are not of 8, 16 or 24 bits");
    if (format_.channels < 1 || format_.channels > mostChannels) refuse("does not have 1 to 8 channels");
    if (format_.rate == 0) refuse("does not state its sample rate");
    if (littleEndian(chunk + 12, 2) != format_.frameBytes()) refuse("does not pack its samples as WAV files do");
}

std::size_t WavReader::read(std::uint8_t* to, std::size_t count)
{
    if (dataBytes_) count = std::size_t(std::min<std::uint64_t>(count, *dataBytes_ - read_));
    const std::size_t got = source_.read(to, count);
    read_ += got;
    if (dataBytes_ && got < count) {
        throw Failure(Fault::Read, source_.name() + ": ends before its samples do: the file is cut");
    }
    return got;
}

Bytes WavReader::trailer(std::size_t most)
{
    Bytes bytes(most);
    bytes.resize(source_.read(bytes.data(), most));
    return bytes;
}

} // namespace zolt::companion
