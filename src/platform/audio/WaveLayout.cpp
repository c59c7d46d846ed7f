#include "platform/audio/ChunkWalker.h"
#include "platform/audio/LinearLayout.h"
#include "platform/audio/WaveTags.h"

#include <QFile>

namespace zolt {

namespace {

constexpr uint32_t sizeUnknown = 0xffffffff;

/// What the header has told so far.
struct WaveHeader
{
    bool unfinished = false;   ///< the writer never came back to fill in the sizes
    int64_t longDataSize = -1; ///< of an RF64 file
    bool formatSeen = false;
    bool dataSeen = false;
    int64_t dataBytes = 0;
};

uint16_t wordAt(const QByteArray& bytes, int at)
{
    return qFromLittleEndian<uint16_t>(bytes.constData() + at);
}

bool isExtensible(const QByteArray& body)
{
    return body.size() >= 40 && wordAt(body, 0) == waveTag::Extensible;
}

uint16_t sampleTag(const QByteArray& body)
{
    if (!isExtensible(body)) return wordAt(body, 0);
    return body.mid(26, 14) == waveTag::extensibleTail ? wordAt(body, 24) : 0;
}

AudioStatus describe(uint16_t tag, double rate, uint32_t channels, uint32_t bits, uint32_t bytes, AudioFormat& format)
{
    const bool isFloat = tag == waveTag::Float;
    if (tag != waveTag::Integer && !isFloat) return audioStatus::UnsupportedFormat;
    if (isFloat ? bits != bytes * 8 || (bytes != 4 && bytes != 8) : bytes > 4) return audioStatus::UnsupportedFormat;
    const uint32_t integerFlags = bytes == 1 ? 0 : pcmFlag::SignedInteger;
    format = linearFormatInBytes(rate, channels, bits, bytes, isFloat ? pcmFlag::Float : integerFlags);
    return audioStatus::Ok;
}

AudioStatus readFormat(const QByteArray& body, AudioFormat& format)
{
    if (body.size() < 16) return audioStatus::InvalidFile;
    const uint32_t channels = wordAt(body, 2);
    const auto rate = qFromLittleEndian<uint32_t>(body.constData() + 4);
    const uint32_t blockAlign = wordAt(body, 12);
    if (!channels || !blockAlign || blockAlign % channels) return audioStatus::InvalidFile;
    const uint32_t bytes = blockAlign / channels;
    const uint32_t stated = isExtensible(body) && wordAt(body, 18) ? wordAt(body, 18) : wordAt(body, 14);
    const uint32_t bits = stated ? stated : bytes * 8;
    if (bits > bytes * 8) return audioStatus::InvalidFile;
    return describe(sampleTag(body), rate, channels, bits, bytes, format);
}

/// True if a whole chunk with a readable name stands at the offset.
bool isChunkAt(QFile& file, int64_t offset)
{
    const auto header = bytesAt(file, offset, 8);
    const auto name = QByteArrayView(header).first(std::min<qsizetype>(header.size(), 4));
    return header.size() == 8 && std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; }) &&
           offset + 8 + qFromLittleEndian<uint32_t>(header.constData() + 4) <= file.size();
}

/// A recorder that crashed has left 0 where the size belongs, and the samples reach to the end of the file. Where
/// another chunk follows at once, 0 is the truth.
int64_t dataBytesOf(QFile& file, const Chunk& chunk, const WaveHeader& header)
{
    const bool hasLongSize = chunk.size == sizeUnknown && header.longDataSize >= 0;
    const int64_t stated = hasLongSize ? header.longDataSize : chunk.size % sizeUnknown;
    if (stated) return stated;
    const bool unfinished = !hasLongSize && (header.unfinished || chunk.size == sizeUnknown);
    return unfinished || !isChunkAt(file, chunk.bodyOffset) ? INT64_MAX : 0;
}

AudioStatus visitChunk(QFile& file, const Chunk& chunk, WaveHeader& header, LinearLayout& layout)
{
    AudioStatus status = audioStatus::Ok;
    if (chunk.id == fourCharCode("ds64")) {
        const auto body = bytesAt(file, chunk.bodyOffset, 16);
        if (body.size() == 16) header.longDataSize = qFromLittleEndian<int64_t>(body.constData() + 8);
    } else if (chunk.id == fourCharCode("fmt ") && !header.formatSeen) {
        header.formatSeen = true;
        status = readFormat(bytesAt(file, chunk.bodyOffset, std::min<uint32_t>(chunk.size, 40)), layout.format);
    } else if (chunk.id == fourCharCode("data") && !header.dataSeen) {
        header.dataSeen = true;
        layout.dataOffset = chunk.bodyOffset;
        header.dataBytes = dataBytesOf(file, chunk, header);
    }
    return status;
}

} // namespace

AudioStatus readWaveLayout(QFile& file, LinearLayout& layout)
{
    WaveHeader header;
    const auto riffSize = bytesAt(file, 4, 4);
    const auto stated = riffSize.size() == 4 ? qFromLittleEndian<uint32_t>(riffSize.constData()) : 0;
    header.unfinished = stated == 0 || stated == sizeUnknown;
    const auto status = walkChunks(file, false, [&](const Chunk& chunk) {
        // What lies behind the samples cannot matter any more, and in a cut file it is not even there.
        if (header.formatSeen && header.dataSeen) return walkDone;
        return visitChunk(file, chunk, header, layout);
    });
    if (status) return status;
    if (!header.formatSeen || !header.dataSeen) return audioStatus::InvalidFile;
    return limitToFile(layout, header.dataBytes, file.size());
}

} // namespace zolt
