#include "HandMadeM4a.h"

namespace zolt::test {

namespace {

constexpr int framesPerPacket = 4096;

/// Bits in writing order, the highest first.
class BitWriter
{
public:
    void put(uint64_t value, int bits)
    {
        for (int bit = bits - 1; bit >= 0; --bit) {
            if (used_ % 8 == 0) bytes_ += '\0';
            if (value >> bit & 1) bytes_.back() = static_cast<char>(bytes_.back() | 0x80 >> used_ % 8);
            ++used_;
        }
    }
    const QByteArray& bytes() const { return bytes_; }

private:
    QByteArray bytes_;
    int used_ = 0;
};

/// One element of one or two channels, flagged as uncompressed and with its own length, then the end tag.
QByteArray packet(const Numbers& numbers, size_t first, size_t frames, uint32_t channels, uint32_t bits)
{
    BitWriter writer;
    writer.put(channels - 1, 3);
    writer.put(0, 4 + 12);
    writer.put(1, 1); // the length follows
    writer.put(0, 2);
    writer.put(1, 1); // uncompressed
    writer.put(frames, 32);
    for (size_t i = 0; i < frames * channels; ++i)
        writer.put(static_cast<uint32_t>(numbers[(first * channels) + i]), static_cast<int>(bits));
    writer.put(7, 3);
    return writer.bytes();
}

QByteArray configuration(uint32_t rate, uint32_t channels, uint32_t bits)
{
    return bigEndian(0, 4) + bigEndian(framesPerPacket, 4) + bigEndian(0, 1) + bigEndian(bits, 1) + bigEndian(40, 1) +
           bigEndian(10, 1) + bigEndian(14, 1) + bigEndian(channels, 1) + bigEndian(255, 2) + bigEndian(0, 8) +
           bigEndian(rate, 4);
}

QByteArray sampleDescription(uint32_t rate, uint32_t channels, uint32_t bits)
{
    const QByteArray entry = QByteArray(6, '\0') + bigEndian(1, 2) + QByteArray(8, '\0') + bigEndian(channels, 2) +
                             bigEndian(bits, 2) + bigEndian(0, 4) + bigEndian(rate << 16, 4);
    return atom("stsd", bigEndian(0, 4) + bigEndian(1, 4) +
                            atom("alac", entry + atom("alac", configuration(rate, channels, bits))));
}

struct Packets
{
    QByteArray bytes;
    QByteArray sizes; ///< as the size table holds them
    uint32_t count = 0;
    uint32_t lastFrames = 0;
};

Packets packetsOf(const Numbers& numbers, uint32_t channels, uint32_t bits)
{
    Packets packets;
    const size_t frames = numbers.size() / channels;
    for (size_t at = 0; at < frames; at += framesPerPacket) {
        packets.lastFrames = static_cast<uint32_t>(std::min<size_t>(framesPerPacket, frames - at));
        const auto one = packet(numbers, at, packets.lastFrames, channels, bits);
        packets.bytes += one;
        packets.sizes += bigEndian(static_cast<uint64_t>(one.size()), 4);
        ++packets.count;
    }
    return packets;
}

QByteArray sampleTable(const Packets& packets, const QByteArray& description, uint32_t offset)
{
    const QByteArray times = bigEndian(0, 4) + bigEndian(2, 4) + bigEndian(packets.count - 1, 4) +
                             bigEndian(framesPerPacket, 4) + bigEndian(1, 4) + bigEndian(packets.lastFrames, 4);
    const QByteArray chunks =
        bigEndian(0, 4) + bigEndian(1, 4) + bigEndian(1, 4) + bigEndian(packets.count, 4) + bigEndian(1, 4);
    return atom("stbl", description + atom("stts", times) + atom("stsc", chunks) +
                            atom("stsz", bigEndian(0, 8) + bigEndian(packets.count, 4) + packets.sizes) +
                            atom("stco", bigEndian(0, 4) + bigEndian(1, 4) + bigEndian(offset, 4)));
}

QByteArray movie(uint32_t rate, uint32_t frames, const QByteArray& table)
{
    const QByteArray matrix = bigEndian(0x10000, 4) + QByteArray(12, '\0') + bigEndian(0x10000, 4) +
                              QByteArray(12, '\0') + bigEndian(0x40000000, 4);
    const QByteArray movieHeader = QByteArray(12, '\0') + bigEndian(rate, 4) + bigEndian(frames, 4) +
                                   bigEndian(0x10000, 4) + bigEndian(0x100, 2) + QByteArray(10, '\0') + matrix +
                                   QByteArray(24, '\0') + bigEndian(2, 4);
    const QByteArray trackHeader = bigEndian(7, 4) + bigEndian(0, 8) + bigEndian(1, 4) + bigEndian(0, 4) +
                                   bigEndian(frames, 4) + QByteArray(8, '\0') + bigEndian(0, 4) + bigEndian(0x100, 2) +
                                   bigEndian(0, 2) + matrix + QByteArray(8, '\0');
    const QByteArray mediaHeader =
        QByteArray(12, '\0') + bigEndian(rate, 4) + bigEndian(frames, 4) + bigEndian(0x55c40000, 4);
    const QByteArray handler = QByteArray(8, '\0') + "soun" + QByteArray(13, '\0');
    const QByteArray reference =
        atom("dinf", atom("dref", bigEndian(0, 4) + bigEndian(1, 4) + atom("url ", bigEndian(1, 4))));
    const QByteArray media = atom("minf", atom("smhd", QByteArray(8, '\0')) + reference + table);
    const QByteArray track =
        atom("tkhd", trackHeader) + atom("mdia", atom("mdhd", mediaHeader) + atom("hdlr", handler) + media);
    return atom("moov", atom("mvhd", movieHeader) + atom("trak", track));
}

} // namespace

QByteArray atom(const char* name, const QByteArray& contents)
{
    return bigEndian(static_cast<uint64_t>(contents.size()) + 8, 4) + QByteArray(name, 4) + contents;
}

QByteArray handMadeM4a(const Numbers& numbers, uint32_t rate, uint32_t channels, uint32_t bits)
{
    const auto packets = packetsOf(numbers, channels, bits);
    const auto head = atom("ftyp", QByteArray("M4A ") + bigEndian(0, 4) + "M4A mp42isom");
    const auto offset = static_cast<uint32_t>(head.size()) + 8;
    const auto table = sampleTable(packets, sampleDescription(rate, channels, bits), offset);
    return head + atom("mdat", packets.bytes) + movie(rate, static_cast<uint32_t>(numbers.size() / channels), table);
}

} // namespace zolt::test
