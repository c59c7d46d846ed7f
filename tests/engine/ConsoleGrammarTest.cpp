#include "engine/ConsoleGrammar.h"
#include "engine/ZOLTTask.h"
#include "platform/errors/Exceptions.h"
#include "support/EveryCut.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;
using G = ConsoleGrammar;

namespace {

/// What a grammar leaves of a transcript on a row and in its results.
struct Row
{
    std::shared_ptr<ZOLTTask> task = ZOLTTask::initWithQueue(nullptr);
    QList<double> values;

    Row() { task->setTitle(u"title"_s); }
    ~Row() { task->setResults(nullptr); }
    void feed(const G& grammar, const OptionalText& piece, const QString& subject = {})
    {
        const auto reading = grammar.read(piece, subject);
        if (reading.digits) values += reading.value;
        grammar.show(reading, *task);
    }
    QString status() const { return task->topTextField()->stringValue(); }
    double bar() const { return task->progressIndicator()->doubleValue(); }
    QString name() const { return task->textField()->stringValue(); }
    QString text() const { return task->results()->results(); }
};

struct Expected
{
    const char* name;
    const G& grammar;
    QString piece; ///< with progress in it
    double value;
    QString status;
    double barWithout; ///< after a piece without the marker, from 5
    int times;         ///< how often a plain piece reaches the results
    bool namesRow;
};

void PrintTo(const Expected& row, std::ostream* out)
{
    *out << row.name;
}

const QString shntoolFirst = u"Converting [a.wav] (0:20.00) --> [out/a.flac] :   0% "_s;

const std::vector<Expected>& rows()
{
    static const QString mac = u"Progress: 12.5% (7 seconds remaining, 9 seconds total)"_s;
    static const std::vector<Expected> table{
        {"flacDecode", G::flacDecode, u"a.flac: 7.5% complete"_s, 7.5, u"Decoding Flac: 7.5%"_s, -1, 1, true},
        {"flacEncode", G::flacEncode, u"a.wav: 42% complete, ratio=0.481"_s, 42, u"Encoding to Flac: 42% ratio=0.481"_s,
         5, 1, true},
        {"flacTest", G::flacTest, u"a.flac: testing, 42% complete"_s, 42, u"Verifying: 42.000000%"_s, 5, 0, true},
        {"flacToWav", G::flacToWav, u"a.flac: 42% complete"_s, 42, u"Decoding to Wav: 42%"_s, -1, 1, true},
        {"wavpackDecode", G::wavpackDecode, u"\b\b 23% done..."_s, 23, u"Decoding From Wavpack:  23%"_s, -1, 2, false},
        {"wavpackEncode", G::wavpackEncode, u"\b\b 23% done..."_s, 23, u"Encoding to Wavpack:  23%"_s, -1, 1, false},
        {"wavpackTest", G::wavpackTest, u"\b\b 23% done..."_s, 23, u"Verifying: 23.000000%"_s, 5, 1, true},
        {"ttaDecode", G::ttaDecode, u"Percent Progress: 23 of it"_s, 23, u"Decoding From TTA: 23 of it%"_s, -1, 2,
         false},
        {"ttaEncode", G::ttaEncode, u"Percent Progress: 23"_s, 23, u"Encoding to TTA: 23%"_s, -1, 2, false},
        {"ttaTest", G::ttaTest, u"\b23% done"_s, 23, u"Verifying: 23.000000%"_s, 5, 1, true},
        {"apeDecode", G::apeDecode, mac, 12.5, u"Decoding from Monkey's Audio: 12.5%   7 seconds remaining"_s, -1, 1,
         false},
        {"apeEncode", G::apeEncode, mac, 12.5, u"Encoding to Monkey's Audio: 12.5%   7 seconds remaining"_s, -1, 1,
         false},
        {"apeTest", G::apeTest, mac, 12.5, u"Verifying: 12.5%"_s, 5, 0, true},
        {"apeToWav", G::apeToWav, mac, 12.5, u"Decoding from Monkey's Audio: 12.5%   7 seconds remaining"_s, -1, 0,
         true},
        {"shnDecode", G::shnDecode, u"\b\b 25% "_s, 25, u"Decoding SHN: 25.000000%"_s, -1, 1, true},
        {"shnEncode", G::shnEncode, u"\b\b 25% "_s, 25, u"Encoding to SHN: 25.000000%"_s, -1, 1, true},
        {"shnToFlac", G::shnToFlac, u"\b\b 25% "_s, 25, u"Encoding APE to Flac:  25%"_s, -1, 1, true},
        {"shnToWavDecoding", G::shnToWavDecoding, u"\b 25% "_s, 25, u"Decoding to WAV: 25.000000%"_s, -1, 1, false},
        {"shntoolJoin", G::shntoolJoin, u"\b\b 25% "_s, 25, u"Joining Files:  25%"_s, -1, 1, false},
        {"shntoolPad", G::shntoolPad, u"\b\b 25% "_s, 25, u"Padding:  25%"_s, -1, 1, true},
        {"shntoolSplit", G::shntoolSplit, u"\b\b 25% "_s, 25, u"Splitting:  25%"_s, -1, 1, true},
        {"shntoolStrip", G::shntoolStrip, u"\b\b 25% "_s, 25, u"Padding:  25%"_s, -1, 1, true},
        {"shntoolTrim", G::shntoolTrim, u"\b\b 25% "_s, 25, u"APE Files:  25%"_s, -1, 1, false},
        {"shnToWavEncoding", G::shnToWavEncoding, u"\b 25% "_s, 25, u"Encoding to WAV: 25.000000%"_s, -1, 1, false},
    };
    return table;
}

class EveryGrammar : public testing::TestWithParam<Expected>
{
};

INSTANTIATE_TEST_SUITE_P(Console, EveryGrammar, testing::ValuesIn(rows()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(EveryGrammar, PieceWithProgressReachesBarAndStatus)
{
    Row row;
    row.feed(GetParam().grammar, GetParam().piece, u"APE"_s);
    EXPECT_EQ(row.bar(), GetParam().value);
    EXPECT_EQ(row.status(), GetParam().status);
}

TEST_P(EveryGrammar, PlainPieceMovesTheBarAndIsKeptAsTold)
{
    Row row;
    row.task->progressIndicator()->setDoubleValue(5);
    row.feed(GetParam().grammar, u"plain"_s, u"APE"_s);
    EXPECT_EQ(row.bar(), GetParam().barWithout);
    EXPECT_EQ(row.text(), u"plain"_s.repeated(GetParam().times) + u'\n');
    EXPECT_EQ(row.name(), GetParam().namesRow ? u"title"_s : QString());
    EXPECT_FALSE(row.task->error());
}

TEST_P(EveryGrammar, StatusStaysWithoutTheMarkerUnlessTheRowSaysOtherwise)
{
    Row row;
    row.feed(GetParam().grammar, u"plain"_s, u"APE"_s);
    const QString bare = &GetParam().grammar == &G::flacEncode         ? u"Encoding to Flac: % "_s
                         : &GetParam().grammar == &G::shnToWavDecoding ? u"Decoding to WAV: -1.000000%"_s
                         : &GetParam().grammar == &G::shnToWavEncoding ? u"Encoding to WAV: -1.000000%"_s
                                                                       : u"Waiting..."_s;
    EXPECT_EQ(row.status(), bare);
}

TEST_P(EveryGrammar, PieceThatIsNoTextReadsAsAnEmptyOne)
{
    Row row;
    row.task->progressIndicator()->setDoubleValue(5);
    row.feed(GetParam().grammar, std::nullopt);
    EXPECT_EQ(row.bar(), GetParam().barWithout);
    EXPECT_EQ(row.text(), u"\n"_s);
}

TEST(ConsoleGrammar, TextsBesideTheFirstSlotGoToTheTasksOwn)
{
    const auto first = ZOLTTask::initWithQueue(nullptr), second = ZOLTTask::initWithQueue(nullptr);
    first->results()->addTaskInSet(second);
    second->setResults(first->results());
    const auto keep = [&](const G& grammar) { grammar.follow(u"x"_s, *second); };
    keep(G::wavpackTest);
    keep(G::ttaTest);
    keep(G::shnEncode);
    EXPECT_EQ(first->results()->results(), u"x\nxx\n"_s);
    first->setResults(nullptr);
    second->setResults(nullptr);
}

TEST(ConsoleGrammar, ResultsThatWereDroppedAreLeftAlone)
{
    Row row;
    const auto collector = row.task->results();
    row.task->setResults(nullptr);
    row.feed(G::flacDecode, u"a.flac: 42% complete"_s);
    EXPECT_EQ(collector->results(), u"\n"_s);
    EXPECT_EQ(row.bar(), 42);
}

TEST(ConsoleGrammar, FlacMarkerIsTheSignAndABlankWhenDecodingAndTheSignAloneWhenEncoding)
{
    EXPECT_FALSE(G::flacDecode.read(u"a.flac: 42%"_s).digits);
    EXPECT_TRUE(G::flacEncode.read(u"a.wav: 42%, ratio=1"_s).digits);
    EXPECT_TRUE(G::flacTest.read(u"a, 42%"_s).digits);
}

TEST(ConsoleGrammar, FlacPieceWithSeveralUpdatesGivesTheFirst)
{
    EXPECT_EQ(G::flacDecode.read(u"a.flac: 10% complete\b\ba.flac: 20% complete"_s).value, 10);
    const auto encoding = G::flacEncode.read(u"a: 10% complete, ratio=0.1\b\ba: 20% complete, ratio=0.2"_s);
    EXPECT_EQ(encoding.value, 10);
    EXPECT_EQ(encoding.second, u"ratio=0.1\b\ba: 20% complete, ratio=0.2"_s) << "kept: up to the end of the piece";
}

TEST(ConsoleGrammar, FlacNameWithAColonAndBlankMovesTheNumberOutOfReach)
{
    const auto reading = G::flacDecode.read(u"a: b.flac: 42% complete"_s);
    EXPECT_EQ(reading.value, 0);
    EXPECT_EQ(reading.digits, u"b.flac: 42"_s.first(6));
    EXPECT_EQ(G::flacDecode.read(u"a: 3x.flac: 42% complete"_s).value, 3) << "whatever stands there is read";
}

TEST(ConsoleGrammar, MarkerWithoutWhatASplitLooksForIsARangeFault)
{
    EXPECT_THROW(G::flacDecode.read(u"84% complete"_s), RangeException);
    EXPECT_THROW(G::flacToWav.read(u"84% complete"_s), RangeException);
    EXPECT_THROW(G::flacEncode.read(u"84% complete, ratio=0.4"_s), RangeException);
    EXPECT_THROW(G::flacEncode.read(u"a.wav: 84% complete"_s), RangeException) << "no ratio";
    EXPECT_THROW(G::flacTest.read(u"a.flac: 84% complete"_s), RangeException);
    EXPECT_THROW(G::apeTest.read(u"84%"_s), RangeException);
    EXPECT_NO_THROW(G::wavpackTest.read(u"84%"_s));
    EXPECT_NO_THROW(G::shnEncode.read(u"%"_s));
}

TEST(ConsoleGrammar, WavpackTestWithTheSignAloneReadsTheWholePiece)
{
    EXPECT_EQ(G::wavpackTest.read(u"verified a.wv in 0.07 secs (lossless, 50.96%)"_s).value, 0);
    EXPECT_EQ(G::wavpackTest.read(u"50.96% of it"_s).value, 50.96);
}

TEST(ConsoleGrammar, WavpackTextsThatFailATask)
{
    const auto fails = [](const QString& text) { return G::wavpackEncode.read(text).failed; };
    EXPECT_TRUE(fails(u"x couldn't read all samples, file may be corrupt!! y"_s));
    EXPECT_TRUE(fails(u"overwrite a.wv (yes/no/all)? "_s));
    EXPECT_FALSE(fails(u"overwrite a.wv"_s));
    EXPECT_FALSE(fails(u"(yes/no/all)?"_s));
    EXPECT_FALSE(G::wavpackDecode.read(u"overwrite a.wav (yes/no/all)? "_s).failed);
    Row row;
    row.feed(G::wavpackEncode, u"overwrite a.wv (yes/no/all)? "_s);
    EXPECT_TRUE(row.task->error());
}

TEST(ConsoleGrammar, MacErrorNumbersAreFoundInsideLongerOnes)
{
    for (const G* grammar : {&G::apeDecode, &G::apeEncode, &G::apeToWav}) {
        EXPECT_TRUE(grammar->read(u"Error: 1000"_s).failed);
        EXPECT_TRUE(grammar->read(u"Error: 10"_s).failed);
        EXPECT_TRUE(grammar->read(u"Error: 2000"_s).failed);
        EXPECT_FALSE(grammar->read(u"Error: 200"_s).failed);
    }
    EXPECT_FALSE(G::apeTest.read(u"Error: 1000"_s).failed);
}

TEST(ConsoleGrammar, MacProgressNeedsAllThreeOfItsMarks)
{
    EXPECT_FALSE(G::apeDecode.read(u"Progress: 12.5%"_s).digits);
    EXPECT_FALSE(G::apeDecode.read(u"Progress: 12.5 (7 seconds remaining, "_s).digits);
    EXPECT_FALSE(G::apeDecode.read(u"12.5% (7 seconds remaining, "_s).digits);
    EXPECT_EQ(G::apeDecode.read(u"\rProgress: 12.5% (7.25 seconds remaining, "_s).second, u"7.25"_s);
}

TEST(ConsoleGrammar, MacPieceIsNotTrimmed)
{
    EXPECT_EQ(G::apeDecode.read(u"\b x \n"_s).text, u"\b x \n"_s);
    EXPECT_EQ(G::apeTest.read(u"\b x \n"_s).text, u"\b x \n"_s);
    EXPECT_EQ(G::flacTest.read(u"\n x \b\n"_s).text, u"x \b"_s) << "backspaces stay with flac";
    EXPECT_EQ(G::shnEncode.read(u"\b x \n\b"_s).text, u" x \n"_s) << "blanks stay with shntool";
}

TEST(ConsoleGrammar, ShntoolConversionKeepsItsHeadAndAgainItsClosingWord)
{
    const auto kept = [](const G& grammar, const QString& text) { return grammar.read(text).kept; };
    const QString head = u"Converting [a.wav] (0:20.00) --> [out/a.flac] "_s;
    for (const G* grammar : {&G::shnEncode, &G::shnToFlac, &G::shnToWavDecoding, &G::shnToWavEncoding}) {
        EXPECT_EQ(kept(*grammar, shntoolFirst), QStringList({head, shntoolFirst}));
        EXPECT_EQ(kept(*grammar, u"OK\n"_s), QStringList({u"OK\n"_s, u"OK\n"_s}));
        EXPECT_EQ(kept(*grammar, u"ERROR\n"_s), QStringList({u"ERROR\n"_s, u"ERROR\n"_s}));
    }
    EXPECT_EQ(kept(G::shnDecode, shntoolFirst + u"OK"_s).size(), 1);
}

TEST(ConsoleGrammar, FirstPieceOfShntoolReadsAsNought)
{
    const auto reading = G::shnToFlac.read(shntoolFirst, u"SHN"_s);
    EXPECT_EQ(reading.value, 0);
    EXPECT_EQ(reading.status, u"Encoding SHN to Flac: Converting [a.wav] (0:20.00) --> [out/a.flac] :   0%"_s)
        << "kept: all that stands before the sign";
}

TEST(ConsoleGrammar, TextsPutIntoAStatusAreNotReadAsItsPlaces)
{
    EXPECT_EQ(G::shnToFlac.read(u"{value}{subject} 5%"_s, u"{digits}"_s).status,
              u"Encoding {digits} to Flac: {value}{subject} 5%"_s);
}

namespace {

struct Recording
{
    const char* name;
    const G& grammar;
    QByteArray text;
};

void PrintTo(const Recording& recording, std::ostream* out)
{
    *out << recording.name;
}

const QByteArray wavpackRun("\n WAVPACK  Hybrid Lossless Audio Compressor  linux-gnu Version 5.6.0\n"
                            " Copyright (c) 1998 - 2022 David Bryant.  All Rights Reserved.\n\n"
                            "creating m.wv,   2% done...\b\b\b\b\b\b\b\b\b\b\b\b 47% done...\b\b\b\b\b\b\b\b\b\b\b\b"
                            "100% done...\rcreated m.wv in 0.09 secs (lossless, 50.96%)                    \n");
const QByteArray
    wvunpackRun("\n WVUNPACK  Hybrid Lossless Audio Decompressor  linux-gnu Version 5.6.0\n"
                " Copyright (c) 1998 - 2022 David Bryant.  All Rights Reserved.\n\n"
                "restoring m2.wav,   0% done...\b\b\b\b\b\b\b\b\b\b\b\b 34% done...\b\b\b\b\b\b\b\b\b\b\b\b"
                "100% done...\rrestored m2.wav in 0.08 secs (lossless, 50.96%)                 \n");
const QByteArray shntoolRun("Converting [m.wav] (1:00.00) --> [/tmp/m.flac] :   0% \b\b\b\b\b  2% \b\b\b\b\b 47% "
                            "\b\b\b\b\b100% OK\n");
const QByteArray macRun("--- Monkey's Audio Console Front End ---\nDecompressing...\n\r"
                        "Progress: 47.1% (2.5 seconds remaining, 4.7 seconds total)          \r"
                        "Progress: 100.0% (0.0 seconds remaining, 4.7 seconds total)          \nSuccess...\n");
const QByteArray ttaRun("TTA1 lossless audio encoder\nFile: [m.tta]\r\bPercent Progress: 47\rPercent Progress: 100\n");

std::vector<Recording> recordings()
{
    return {
        {"wavpackEncode", G::wavpackEncode, wavpackRun},
        {"wavpackDecode", G::wavpackDecode, wvunpackRun},
        {"wavpackTest", G::wavpackTest, wvunpackRun},
        {"shnDecode", G::shnDecode, shntoolRun},
        {"shnEncode", G::shnEncode, shntoolRun},
        {"shnToFlac", G::shnToFlac, shntoolRun},
        {"shnToWavDecoding", G::shnToWavDecoding, shntoolRun},
        {"shnToWavEncoding", G::shnToWavEncoding, shntoolRun},
        {"apeDecode", G::apeDecode, macRun},
        {"apeEncode", G::apeEncode, macRun},
        {"apeToWav", G::apeToWav, macRun},
        {"apeTest", G::apeTest, macRun},
        {"ttaDecode", G::ttaDecode, ttaRun},
        {"ttaEncode", G::ttaEncode, ttaRun},
    };
}

class EveryRecording : public testing::TestWithParam<Recording>
{
};

INSTANTIATE_TEST_SUITE_P(Console, EveryRecording, testing::ValuesIn(recordings()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(EveryRecording, CutAtEveryByteGivesNoNumberThatDoesNotStandInIt)
{
    const auto& [name, grammar, text] = GetParam();
    QList<double> allowed{0};
    for (qsizetype start = 0; start < text.size(); ++start) {
        for (qsizetype length = 1; length < 8; ++length)
            allowed += doubleValue(QString::fromUtf8(text.mid(start, length)));
    }
    everyCut(text, [&](const QList<QByteArray>& pieces) {
        Row row;
        for (const QByteArray& piece : pieces) {
            try {
                row.feed(grammar, decodeUtf8(piece));
            } catch (const RangeException&) {
                EXPECT_TRUE(&grammar == &G::apeTest) << "a sign whose words came in the piece before";
            }
        }
        for (const double value : row.values)
            EXPECT_TRUE(allowed.contains(value)) << value;
        EXPECT_FALSE(row.task->error());
    });
}
