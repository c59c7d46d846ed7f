#include "engine/console/FlacDialect.h"
#include "engine/ConsoleGrammar.h"
#include "support/EveryCut.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray banner("\nflac 1.4.2\nCopyright (C) 2000-2009  Josh Coalson, 2011-2022  Xiph.Org Foundation\n"
                        "flac comes with ABSOLUTELY NO WARRANTY.  This is free software, and you are\n"
                        "welcome to redistribute it under certain conditions.  Type `flac' for details.\n\n");

QList<QByteArray> backspaces(int count)
{
    return QList<QByteArray>(count, "\b");
}

/// What flac 1.4.2 wrote, read by read.
const QList<QByteArray> decoding = QList<QByteArray>{banner, "big.flac: ", "14% complete"} + backspaces(12) +
                                   QList<QByteArray>{"26% complete", QByteArray(12, '\b') + "39% complete"} +
                                   backspaces(12) + QList<QByteArray>{"done         \n"};
const QList<QByteArray> checking = QList<QByteArray>{banner, "big.flac: ", "testing, 27% complete"} + backspaces(21) +
                                   QList<QByteArray>{"52% complete", QByteArray(12, '\b') + "77% complete"} +
                                   backspaces(12) + QList<QByteArray>{"ok                    \n"};
const QList<QByteArray> encoding =
    QList<QByteArray>{banner, "big.wav: 4% complete, ratio=0.488", QByteArray(24, '\b') + "13% complete, ratio=0.483"} +
    backspaces(25) + QList<QByteArray>{"97% complete, ratio=0.481"} + backspaces(25) +
    QList<QByteArray>{"wrote 101863136 bytes, ratio=0.481", "\n"};
const QList<QByteArray> verifiedEncoding =
    QList<QByteArray>{banner, "big.wav: 4% complete, ratio=0.488", QByteArray(24, '\b') + "9% complete, ratio=0.484"} +
    backspaces(24) + QList<QByteArray>{"Verify OK, wrote 101860312 bytes, ratio=0.481", "\n"};

/// A tool's run as a task sees it: what reaches the parser, piece by piece.
QByteArrayList completed(FlacDialect::Update update, const QList<QByteArray>& pieces)
{
    FlacDialect dialect(update);
    QByteArrayList seen;
    for (const QByteArray& piece : pieces)
        seen += dialect.complete(piece);
    seen += dialect.rest();
    seen.removeAll(QByteArray());
    return seen;
}

QList<double> readings(FlacDialect::Update update, const QList<QByteArray>& pieces, const ConsoleGrammar& grammar)
{
    QList<double> values;
    for (const QByteArray& piece : completed(update, pieces)) {
        const auto reading = grammar.read(QString::fromUtf8(piece)); // a fault here fails the test
        if (reading.digits) values += reading.value;
    }
    return values;
}

const auto percent = FlacDialect::Update::Percent;
const auto percentRatio = FlacDialect::Update::PercentRatio;

} // namespace

TEST(FlacDialect, EveryNumberGetsTheWordsThatStoodBeforeTheFirst)
{
    EXPECT_EQ(completed(percent, {"a.flac: 18% complete", "\b\b\b36% complete", "\b\b\b", "done\n"}),
              QByteArrayList({"a.flac: 18% complete", "\b\b\ba.flac: 36% complete", "\b\b\b", "done\n"}));
}

TEST(FlacDialect, NameThatEndsAPieceWaitsForWhatFollowsIt)
{
    EXPECT_EQ(completed(percent, {banner + "a.flac: ", "testing, 27% complete", "\b52% complete"}),
              QByteArrayList({banner, "a.flac: testing, 27% complete", "\ba.flac: testing, 52% complete"}));
    EXPECT_EQ(completed(percent, {"a.flac: "}), QByteArrayList({"a.flac: "})) << "also when nothing follows";
}

TEST(FlacDialect, WordsThatCameInEarlierPiecesAreGivenAgainInFrontOfWhatFollowsThem)
{
    EXPECT_EQ(
        completed(percent, {"a.flac: testing, ", "27% complete", "\b52% complete"}),
        QByteArrayList({"a.flac: testing, ", "a.flac: testing, 27% complete", "\ba.flac: testing, 52% complete"}));
    EXPECT_EQ(completed(percent, {"a.fl", "ac: 27% complete"}), QByteArrayList({"a.fl", "a.flac: 27% complete"}));
}

TEST(FlacDialect, SeveralNumbersInOnePieceAreAllCompleted)
{
    EXPECT_EQ(completed(percent, {"a.flac: 1% complete\b\b2% complete\b\b3% complete"}),
              QByteArrayList({"a.flac: 1% complete\b\ba.flac: 2% complete\b\ba.flac: 3% complete"}));
}

TEST(FlacDialect, NumberCutInTwoWaitsForItsOtherHalf)
{
    EXPECT_EQ(completed(percent, {"a.flac: 18% complete\b\b3", "6% com", "plete\b"}),
              QByteArrayList({"a.flac: 18% complete\b\b", "a.flac: 36% complete\b"}));
    EXPECT_EQ(completed(percentRatio, {"a.wav: 18% complete, ratio=0.4", "81\b\b9% complete", ", ratio=0.480"}),
              QByteArrayList({"a.wav: ", "a.wav: 18% complete, ratio=0.481\b\b", "a.wav: 9% complete, ratio=0.480"}));
}

TEST(FlacDialect, WhatWaitsWhenTheOutputEndsIsHandedOut)
{
    EXPECT_EQ(completed(percent, {"a.flac: 18% comp"}), QByteArrayList({"a.flac: ", "18% comp"}));
}

TEST(FlacDialect, EveryOtherBytePasses)
{
    const QByteArray other = banner + "12 years.flac: ERROR 5% off\n100% complete nonsense";
    FlacDialect dialect(percentRatio);
    EXPECT_EQ(dialect.complete(other) + dialect.rest(), other);
}

TEST(FlacDialect, NameThatLooksLikeANumberIsNotTakenForOne)
{
    EXPECT_EQ(readings(percent, {"7% complete.flac: ", "14% complete", "\b\b26% complete"}, ConsoleGrammar::flacDecode),
              QList<double>({14, 26}));
}

TEST(FlacDialect, WhatFlacIsAskedToDoTellsTheFormOfItsUpdates)
{
    const auto ofArguments = [](const QStringList& arguments) {
        auto dialect = FlacDialect::forArguments(arguments);
        return dialect->complete("a: 18% complete");
    };
    EXPECT_EQ(ofArguments({u"-d"_s, u"a"_s}), "a: 18% complete");
    EXPECT_EQ(ofArguments({u"-t"_s, u"a"_s}), "a: 18% complete");
    EXPECT_EQ(ofArguments({u"-5"_s, u"a"_s}), "a: ") << "the ratio is still to come";
}

TEST(FlacDialect, IsFoundByTheToolsNameAlone)
{
    const QByteArray cut = "a.flac: 1";
    EXPECT_EQ(dialectFor(u"/tools/flac"_s, {u"-d"_s})->complete(cut), "a.flac: ");
    EXPECT_EQ(dialectFor(u"flac"_s, {u"-d"_s})->complete(cut), "a.flac: ");
    EXPECT_EQ(dialectFor(u"/flac/metaflac"_s, {u"-d"_s})->complete(cut), cut);
}

TEST(FlacDialect, RecordedRunsReachTheGrammarsReadByRead)
{
    EXPECT_EQ(readings(percent, decoding, ConsoleGrammar::flacDecode), QList<double>({14, 26, 39}));
    EXPECT_EQ(readings(percent, decoding, ConsoleGrammar::flacToWav), QList<double>({14, 26, 39}));
    EXPECT_EQ(readings(percent, checking, ConsoleGrammar::flacTest), QList<double>({27, 52, 77}));
    EXPECT_EQ(readings(percentRatio, encoding, ConsoleGrammar::flacEncode), QList<double>({4, 13, 97}));
    EXPECT_EQ(readings(percentRatio, verifiedEncoding, ConsoleGrammar::flacEncode), QList<double>({4, 9}));
}

class RecordedFlac : public testing::Test
{
protected:
    /// Cut anywhere, a run gives numbers of its own, the first and the last among them, and never a fault.
    static void expectOwnNumbers(FlacDialect::Update update, const QList<QByteArray>& run,
                                 const ConsoleGrammar& grammar, const QList<double>& own)
    {
        const QByteArray whole = run.sliced(1).join(); // the banner comes long before
        EXPECT_EQ(readings(update, {whole}, grammar).value(0), own.first());
        everyCut(whole, [&](const QList<QByteArray>& pieces) {
            const auto seen = readings(update, pieces, grammar);
            EXPECT_FALSE(seen.isEmpty());
            for (const double value : seen)
                EXPECT_TRUE(own.contains(value)) << value;
        });
    }
};

TEST_F(RecordedFlac, CutAtEveryByteGivesItsOwnNumbersAlone)
{
    expectOwnNumbers(percent, decoding, ConsoleGrammar::flacDecode, {14, 26, 39});
    expectOwnNumbers(percent, checking, ConsoleGrammar::flacTest, {27, 52, 77});
    expectOwnNumbers(percentRatio, encoding, ConsoleGrammar::flacEncode, {4, 13, 97});
    expectOwnNumbers(percentRatio, verifiedEncoding, ConsoleGrammar::flacEncode, {4, 9});
}

TEST_F(RecordedFlac, FedByteForByteGivesEveryNumber)
{
    QList<QByteArray> bytes;
    for (const char byte : encoding.join())
        bytes += QByteArray(1, byte);
    EXPECT_EQ(readings(percentRatio, bytes, ConsoleGrammar::flacEncode), QList<double>({4, 13, 97}));
}
