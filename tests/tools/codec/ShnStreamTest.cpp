// Streams of every version and command, as other encoders write them.

#include "codec/CompanionFixture.h"

#include "shorten/ShnHeader.h"

using namespace zolt::test;
using namespace zolt::companion;
using namespace Qt::StringLiterals;

namespace {

class ShnStream : public Companions
{
protected:
    int any(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(random_); }

    void writeBytes(BitWriter& bits, const QByteArray& bytes)
    {
        bits.number(shn::Verbatim, shn::lowBits::command);
        bits.number(std::uint32_t(bytes.size()), shn::lowBits::verbatimCount);
        for (const char byte : bytes)
            bits.number(std::uint8_t(byte), shn::lowBits::verbatimByte);
    }

    void writeBlock(BitWriter& bits, const ShnHeader& header, unsigned size)
    {
        constexpr unsigned commands[] = {shn::Lpc, shn::Diff0, shn::Diff1, shn::Diff2, shn::Diff3, shn::Zero};
        const unsigned command = commands[any(header.lpcOrder > 0 ? 0 : 1, 5)], energy = unsigned(any(0, 4));
        bits.number(command, shn::lowBits::command);
        if (command == shn::Zero) return;
        bits.number(energy, shn::lowBits::energy);
        if (command == shn::Lpc) {
            const unsigned order = unsigned(any(1, int(header.lpcOrder)));
            bits.number(order, shn::lowBits::lpcOrder);
            const int most = 31 / int(order); // or the samples would grow without end
            for (unsigned i = 0; i < order; ++i)
                bits.signedNumber(any(-most, most), shn::lowBits::lpcFactor);
        }
        for (unsigned i = 0; i < size; ++i)
            bits.signedNumber(any(-9, 9), energy);
    }

    /// @return how many samples of each channel
    unsigned writeStream(const QString& name, const ShnHeader& header, int blocks, unsigned samples)
    {
        ByteSource none("/dev/null");
        Output output(in(name).toStdString(), none, Unfinished::Kept);
        BitWriter bits(output);
        writeShnHeader(output, bits, header);
        const unsigned depth = header.sampleType().bytes * 8;
        writeBytes(bits, wavHeaderOf({.channels = header.channels, .bits = depth, .samples = samples}));
        unsigned size = header.blockSize, written = 0;
        for (int block = 0; block < blocks; ++block) {
            if (block % 5 == 3) {
                bits.number(shn::BitShift, shn::lowBits::command);
                bits.number(unsigned(any(0, 3)), shn::lowBits::bitShift);
            }
            if (block % 7 == 6) { // blocks only get shorter
                size = unsigned(any(int(size) / 2 + 1, int(size)));
                bits.number(shn::BlockSize, shn::lowBits::command);
                bits.size(size);
            }
            for (unsigned channel = 0; channel < header.channels; ++channel)
                writeBlock(bits, header, size);
            written += size;
        }
        bits.number(shn::Quit, shn::lowBits::command);
        bits.finish();
        output.finish();
        return written;
    }
};

} // namespace

TEST_F(ShnStream, DecodesEveryVersionAndCommandAsFfmpegDoes)
{
    for (int round = 0; round < 60; ++round) {
        const ShnHeader header{.version = unsigned(round % 3 + 1),
                               .type = round % 4 == 3 ? shn::typeOfBytes : shn::typeOfWords,
                               .channels = unsigned(any(1, 2)),
                               .blockSize = unsigned(any(16, 300)),
                               .lpcOrder = unsigned(any(0, 8)),
                               .means = unsigned(any(0, 4))};
        writeStream(u"a.shn"_s, header, any(1, 12), 100000);
        const Outcome decoded = run(u"shorten"_s, {u"-x"_s, u"a.shn"_s, u"-"_s});
        ASSERT_EQ(decoded.status, 0) << decoded.errors.toStdString();
        const QString form = header.type == shn::typeOfBytes ? u"u8"_s : u"s16le"_s;
        EXPECT_TRUE(decoded.output.sliced(44) == decodedByFfmpeg(u"a.shn"_s, form))
            << "round " << round << ", version " << header.version << ", type " << header.type << ", means "
            << header.means;
    }
}

TEST_F(ShnStream, WritesSamplesInTheOrderOfTheirType)
{
    ByteSource none("/dev/null");
    for (const auto& [type, bytes] : {std::pair(1u, QByteArray("\xfe\x05", 2)),
                                      {2u, QByteArray("\x7e\x85", 2)},
                                      {3u, QByteArray("\xff\xfe\0\x05", 4)},
                                      {4u, QByteArray("\x7f\xfe\x80\x05", 4)},
                                      {5u, QByteArray("\xfe\xff\x05\0", 4)},
                                      {6u, QByteArray("\xfe\x7f\x05\x80", 4)}}) {
        Output output(in(u"a.shn"_s).toStdString(), none, Unfinished::Kept);
        BitWriter bits(output);
        writeShnHeader(output, bits,
                       {.version = 1, .type = type, .channels = 1, .blockSize = 2, .skipped = {'h', 'i'}});
        bits.number(shn::Diff0, shn::lowBits::command);
        bits.number(3, shn::lowBits::energy);
        bits.signedNumber(-2, 3);
        bits.signedNumber(5, 3);
        bits.number(shn::Quit, shn::lowBits::command);
        bits.finish();
        output.finish();
        EXPECT_EQ(run(u"shorten"_s, {u"-x"_s, u"a.shn"_s, u"-"_s}).output, "hi" + bytes) << type;
    }
}
