#include "codec/CompanionFixture.h"

#include <QRegularExpression>

using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Mac : public Companions
{
protected:
    void SetUp() override
    {
        const auto ape = sharedFixture(u"mac-399.ape"_s);
        if (!ape) GTEST_SKIP() << "left out: no folder of foreign files beside this checkout";
        ape_ = *ape;
        file(u"a.ape"_s, ape_);
    }

    Outcome mac(const QStringList& arguments) const { return run(u"mac"_s, arguments); }

    QByteArray ape_;
};

constexpr unsigned samples = 156556;

} // namespace

TEST_F(Mac, DecodesToTheSamplesThatFfmpegFinds)
{
    const QByteArray right = wavHeaderOf({.samples = samples}) + decodedByFfmpeg(u"a.ape"_s, u"s16le"_s);
    EXPECT_EQ(mac({u"a.ape"_s, u"a.wav"_s, u"-d"_s}).status, 0);
    EXPECT_TRUE(contents(u"a.wav"_s) == right);
    const Outcome piped = mac({u"a.ape"_s, u"-"_s, u"-d"_s});
    EXPECT_EQ(piped.status, 0);
    EXPECT_EQ(piped.errors, "");
    EXPECT_TRUE(piped.output == right);
}

TEST_F(Mac, PrintsLinesWhoseFirstNumberIsThePercentage)
{
    const QRegularExpression lines(
        u"^[^0-9%]*(\rProgress: [0-9.]+% \\([0-9.]+ seconds remaining, [0-9.]+ seconds total\\) *)+\n[^%]*\n$"_s);
    EXPECT_TRUE(lines.match(QString::fromUtf8(mac({u"a.ape"_s, u"a.wav"_s, u"-d"_s}).errors)).hasMatch());
    EXPECT_TRUE(lines.match(QString::fromUtf8(mac({u"a.ape"_s, u"-v"_s}).errors)).hasMatch());
}

TEST_F(Mac, TellsOfEveryFlippedBit)
{
    expectFlipsToBeTold(u"mac"_s, {u"SOURCE"_s, u"-"_s, u"-d"_s}, ape_, 25);
}

TEST_F(Mac, TellsOfADamagedFrameWithANumber)
{
    ape_[ape_.size() / 2] = char(ape_[ape_.size() / 2] ^ 8);
    file(u"bad.ape"_s, ape_);
    for (const QStringList& call : {QStringList{u"bad.ape"_s, u"-v"_s}, {u"bad.ape"_s, u"bad.wav"_s, u"-d"_s}}) {
        const Outcome outcome = mac(call);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("\nError: 1009 "));
        EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("bad.ape"));
    }
    EXPECT_EQ(contents(u"bad.wav"_s).size(), 44 + samples * 4);
}

TEST_F(Mac, TellsOfAFileWhoseSumAloneIsWrong)
{
    ape_[40] = char(ape_[40] ^ 1); // of the stored sum
    file(u"bad.ape"_s, ape_);
    EXPECT_THAT(mac({u"bad.ape"_s, u"-v"_s}).errors.toStdString(), testing::HasSubstr("\nError: 1009 "));
}

TEST_F(Mac, TellsOfACutFileWithANumber)
{
    for (const qsizetype length :
         {qsizetype(0), qsizetype(5), qsizetype(40), qsizetype(100), ape_.size() / 2, ape_.size() - 1}) {
        file(u"cut.ape"_s, ape_.first(length));
        for (const QStringList& call : {QStringList{u"cut.ape"_s, u"-v"_s}, {u"cut.ape"_s, u"-"_s, u"-d"_s}}) {
            const Outcome outcome = mac(call);
            EXPECT_EQ(outcome.status, 1) << length;
            EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("\nError: 10")) << length;
        }
    }
}

TEST_F(Mac, TellsWhatItCannotReadOrWriteWithANumber)
{
    file(u"text.ape"_s, "not a sound");
    const auto errors = [this](const QStringList& call) { return mac(call).errors.toStdString(); };
    EXPECT_THAT(errors({u"none.ape"_s, u"-v"_s}), testing::HasSubstr("\nError: 1000 "));
    EXPECT_THAT(errors({u"text.ape"_s, u"-v"_s}), testing::HasSubstr("\nError: 1002 "));
    EXPECT_THAT(errors({u"a.ape"_s, u"/dev/full"_s, u"-d"_s}), testing::HasSubstr("\nError: 1001 "));
    EXPECT_THAT(errors({u"a.ape"_s, u"no/where.wav"_s, u"-d"_s}), testing::HasSubstr("\nError: 1001 "));
    EXPECT_THAT(errors({u"a.ape"_s}), testing::HasSubstr("usage: mac"));
    EXPECT_THAT(errors({u"a.ape"_s, u"b.wav"_s, u"-c20x"_s}), testing::HasSubstr("usage: mac"));
    EXPECT_EQ(shell(u"mac a.ape - -d >/dev/full"_s).status, 1);
}

TEST_F(Mac, RefusesAnOutputThatIsTheSource)
{
    EXPECT_EQ(mac({u"a.ape"_s, u"./a.ape"_s, u"-d"_s}).status, 1);
    EXPECT_TRUE(contents(u"a.ape"_s) == ape_);
}

TEST_F(Mac, DecodesFilesWithTagsAtBothEnds)
{
    const QByteArray tag = QByteArray("ID3\4\0\0\0\0\1\0", 10) + QByteArray(128, '\0');
    file(u"tagged.ape"_s, tag + ape_ + "APETAGEX or what else may follow");
    EXPECT_EQ(mac({u"tagged.ape"_s, u"tagged.wav"_s, u"-d"_s}).status, 0);
    EXPECT_EQ(contents(u"tagged.wav"_s).size(), 44 + samples * 4);
}
