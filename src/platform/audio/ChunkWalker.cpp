#include "platform/audio/ChunkWalker.h"

#include <QFile>

namespace zolt {

namespace {

constexpr int headerBytes = 8;
/// A bound for damaged files: without it gigabytes of zeros would be millions of empty chunks.
constexpr int mostChunks = 4096;

Chunk chunkFromHeader(const QByteArray& header, int64_t offset, bool bigEndian)
{
    const char* size = header.constData() + 4;
    return {.id = qFromBigEndian<uint32_t>(header.constData()),
            .size = bigEndian ? qFromBigEndian<uint32_t>(size) : qFromLittleEndian<uint32_t>(size),
            .bodyOffset = offset + headerBytes};
}

} // namespace

QByteArray bytesAt(QFile& file, int64_t offset, int64_t count)
{
    return file.seek(offset) ? file.read(count) : QByteArray();
}

AudioStatus walkChunks(QFile& file, bool bigEndian, const std::function<AudioStatus(const Chunk&)>& visit)
{
    int64_t offset = 12;
    for (int count = 0; count < mostChunks; ++count) {
        const auto header = bytesAt(file, offset, headerBytes);
        if (header.size() < headerBytes) return audioStatus::Ok;
        const auto chunk = chunkFromHeader(header, offset, bigEndian);
        if (const auto status = visit(chunk)) return status == walkDone ? audioStatus::Ok : status;
        offset = chunk.bodyOffset + chunk.size + (chunk.size & 1);
    }
    return audioStatus::InvalidFile;
}

} // namespace zolt
