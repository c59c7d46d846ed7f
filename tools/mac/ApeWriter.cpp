#include "mac/ApeWriter.h"

namespace zolt::companion {

namespace {

constexpr unsigned version = 3990;
constexpr std::size_t descriptorBytes = 52, informationBytes = 24, placeBytes = 4, wordBytes = 4;

void append(Bytes& to, const Bytes& bytes)
{
    to.insert(to.end(), bytes.begin(), bytes.end());
}

} // namespace

ApeWriter::ApeWriter(Output& output, const PcmFormat& format, unsigned level, std::uint32_t samples,
                     const Bytes& wavHeader)
    : output_(output), format_(format), level_(level), samples_(samples), wavHeader_(wavHeader)
{
    output_.write(Bytes(startBytes() - wavHeader_.size()));
    output_.write(wavHeader_);
    sum_.add(wavHeader_);
}

std::size_t ApeWriter::startBytes() const
{
    return descriptorBytes + informationBytes + frames() * placeBytes + wavHeader_.size();
}

/// Frames follow each other byte by byte in a stream whose words are written back to front.
void ApeWriter::writeWords(std::size_t bytes)
{
    Bytes words(bytes);
    for (std::size_t i = 0; i < bytes; ++i)
        words[i] = pending_[i ^ (wordBytes - 1)];
    pending_.erase(pending_.begin(), pending_.begin() + std::ptrdiff_t(bytes));
    sum_.add(words);
    output_.write(words);
}

void ApeWriter::add(const Bytes& frame)
{
    places_.push_back(startBytes() + stream_);
    stream_ += frame.size();
    append(pending_, frame);
    writeWords(pending_.size() / wordBytes * wordBytes);
}

Bytes ApeWriter::information() const
{
    Bytes bytes;
    appendLittleEndian(bytes, level_, 2);
    appendLittleEndian(bytes, 0, 2); // no odd depth, no checksum of another kind, and the WAV header is there
    appendLittleEndian(bytes, apeFrameSamples, 4);
    appendLittleEndian(bytes, samples_ - std::uint64_t(frames() - 1) * apeFrameSamples, 4);
    appendLittleEndian(bytes, frames(), 4);
    appendLittleEndian(bytes, format_.bits, 2);
    appendLittleEndian(bytes, format_.channels, 2);
    appendLittleEndian(bytes, format_.rate, 4);
    return bytes;
}

Bytes ApeWriter::table() const
{
    Bytes bytes;
    for (const std::uint64_t place : places_)
        appendLittleEndian(bytes, place, placeBytes);
    return bytes;
}

void ApeWriter::finish(const Bytes& wavTrailer)
{
    pending_.resize((pending_.size() + wordBytes - 1) / wordBytes * wordBytes);
    writeWords(pending_.size());
    const std::uint64_t frameBytes = output_.position() - startBytes();
    output_.write(wavTrailer);
    const Bytes facts = information(), places = table();
    for (const Bytes* part : {&wavTrailer, &facts, &places})
        sum_.add(*part);
    Bytes start{'M', 'A', 'C', ' '};
    appendLittleEndian(start, version, 4);
    for (const std::size_t size : {descriptorBytes, informationBytes, places.size(), wavHeader_.size()})
        appendLittleEndian(start, size, 4);
    appendLittleEndian(start, frameBytes, 8);
    appendLittleEndian(start, wavTrailer.size(), 4);
    const Md5::Sum sum = sum_.sum();
    start.insert(start.end(), sum.begin(), sum.end());
    append(start, facts);
    append(start, places);
    output_.rewrite(0, start);
}

} // namespace zolt::companion
