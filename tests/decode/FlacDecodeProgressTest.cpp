#include "decode/FlacDecodeProgress.h"

#include "platform/errors/Exceptions.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(FlacDecodeProgress, ReadsTheNumberBehindTheName)
{
    const auto progress = flacDecodeProgress(u"track.flac: 42% complete"_s);
    EXPECT_EQ(progress.value, 42.0);
    EXPECT_EQ(progress.number, u"42"_s);
}

TEST(FlacDecodeProgress, KeepsTheToolsOwnDigits)
{
    const auto progress = flacDecodeProgress(u"track.flac: 7.5% complete"_s);
    EXPECT_EQ(progress.value, 7.5);
    EXPECT_EQ(progress.number, u"7.5"_s);
}

TEST(FlacDecodeProgress, PieceWithoutTheMarkerIsMinusOne)
{
    const auto progress = flacDecodeProgress(u"flac 1.4.2"_s);
    EXPECT_EQ(progress.value, -1.0);
    EXPECT_EQ(progress.number, std::nullopt);
    EXPECT_EQ(flacDecodeProgress(u"42%"_s).value, -1.0) << "the blank behind the sign is part of the marker";
    EXPECT_EQ(flacDecodeProgress(u""_s).value, -1.0);
}

TEST(FlacDecodeProgress, PieceWithSeveralUpdatesGivesTheFirst)
{
    EXPECT_EQ(flacDecodeProgress(u"a.flac: 10% complete\ra.flac: 20% complete"_s).value, 10.0);
}

TEST(FlacDecodeProgress, NameWithAColonAndBlankMovesTheNumberOutOfReach)
{
    const auto progress = flacDecodeProgress(u"a: b.flac: 42% complete"_s);
    EXPECT_EQ(progress.value, 0.0);
    EXPECT_EQ(progress.number, u"b.flac"_s);
    EXPECT_EQ(flacDecodeProgress(u"a: 3x.flac: 42% complete"_s).value, 3.0) << "whatever stands there is read";
}

TEST(FlacDecodeProgress, MarkerWithoutAColonIsARangeFault)
{
    EXPECT_THROW(flacDecodeProgress(u"84% complete"_s), RangeException);
}

namespace {

/// What flac 1.4.2 wrote while it decoded a long track, from its banner to its end.
const QByteArray
    transcript("\nflac 1.4.2\nCopyright (C) 2000-2009  Josh Coalson, 2011-2022  Xiph.Org Foundation\n"
               "flac comes with ABSOLUTELY NO WARRANTY.  This is free software, and you are\n"
               "welcome to redistribute it under certain conditions.  Type `flac' for details.\n\n"
               "a.flac: 47% complete\b\b\b\b\b\b\b\b\b\b\b\b84% complete\b\b\b\b\b\b\b\b\b\b\b\bdone         \n");

/// Fed as a task feeds it: trimmed, and with a fault counted instead of thrown.
ConsoleProgress read(const QByteArray& piece)
{
    try {
        return flacDecodeProgress(trimmed(decodeUtf8(piece).value_or(QString()), CharacterSet::WhiteSpaceAndNewlines));
    } catch (const RangeException&) {
        return {-2.0, std::nullopt};
    }
}

} // namespace

TEST(FlacDecodeProgress, RecordedTextGivesItsFirstNumber)
{
    EXPECT_EQ(read(transcript).value, 47.0);
}

TEST(FlacDecodeProgress, RecordedTextCutAtEveryByteNeverGivesAnotherNumber)
{
    for (qsizetype cut = 0; cut <= transcript.size(); ++cut) {
        for (const QByteArray& piece : {transcript.first(cut), transcript.sliced(cut)}) {
            const double value = read(piece).value;
            // 47, a cut in front of its digits, no marker, or a marker without a name.
            EXPECT_TRUE(value == 47.0 || value == 7.0 || value == 0.0 || value == -1.0 || value == -2.0)
                << cut << ": " << value;
        }
    }
}
