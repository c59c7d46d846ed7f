#include "platform/audio/Container.h"

#include "platform/audio/ChunkWalker.h"

#include <QFile>

namespace zolt {

namespace {

struct Signature
{
    const char* start; ///< the first four bytes; null: any
    const char* inner; ///< four more bytes; null: any
    int innerAt;
    Container container;
};

constexpr Signature signatures[] = {
    {"RIFF", "WAVE", 8, Container::Wave}, {"RF64", "WAVE", 8, Container::Wave}, {"FORM", "AIFF", 8, Container::Aiff},
    {"FORM", "AIFC", 8, Container::Aiff}, {nullptr, "ftyp", 4, Container::Mp4}, {"caff", nullptr, 0, Container::Caf},
    {".snd", nullptr, 0, Container::Au},
};

bool matches(const Signature& signature, const QByteArray& head)
{
    return (!signature.start || head.startsWith(signature.start)) &&
           (!signature.inner || head.mid(signature.innerAt, 4) == signature.inner);
}

/// Where the data begins behind ID3v2 tags; there may be several.
int64_t offsetBehindId3(QFile& file)
{
    int64_t offset = 0;
    for (int tags = 0; tags < 16; ++tags) {
        const auto head = bytesAt(file, offset, 10);
        if (head.size() < 10 || !head.startsWith("ID3")) break;
        int64_t size = 0;
        for (int i = 6; i < 10; ++i)
            size = size << 7 | (head[i] & 0x7f);
        offset += 10 + size;
    }
    return offset;
}

/// Eleven bits of sync, a version, layer III, a bit rate and a sample rate that exist.
bool isMp3Frame(const QByteArray& head)
{
    if (head.size() < 4 || head[0] != '\xff' || (head[1] & 0xe0) != 0xe0) return false;
    const int version = head[1] >> 3 & 3;
    const int layer = head[1] >> 1 & 3;
    const int bitRate = head[2] >> 4 & 15;
    const int sampleRate = head[2] >> 2 & 3;
    return version != 1 && layer == 1 && bitRate != 0 && bitRate != 15 && sampleRate != 3;
}

} // namespace

AudioStatus recogniseContainer(QFile& file, Container& container)
{
    const auto head = bytesAt(file, 0, 12);
    for (const auto& signature : signatures) {
        if (head.size() < 12 || !matches(signature, head)) continue;
        container = signature.container;
        return audioStatus::Ok;
    }
    if (!isMp3Frame(bytesAt(file, offsetBehindId3(file), 4))) return audioStatus::UnsupportedFileType;
    container = Container::Mp3;
    return audioStatus::Ok;
}

const char* demuxerName(Container container)
{
    switch (container) {
    case Container::Wave:
        return "wav";
    case Container::Aiff:
        return "aiff";
    case Container::Mp4:
        return "mov";
    case Container::Caf:
        return "caf";
    case Container::Mp3:
        return "mp3";
    case Container::Au:
        return "au";
    }
    return nullptr;
}

} // namespace zolt
