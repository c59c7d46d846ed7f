#include "engine/console/ShntoolDialect.h"
#include "engine/ConsoleGrammar.h"
#include "support/EveryCut.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// A tool's run as a task sees it: what reaches the parser, piece by piece.
QByteArrayList completed(const QList<QByteArray>& pieces)
{
    ShntoolDialect dialect;
    QByteArrayList seen;
    for (const QByteArray& piece : pieces)
        seen += dialect.complete(piece);
    seen += dialect.rest();
    seen.removeAll(QByteArray());
    return seen;
}

/// What shntool 3.0.10 wrote, read by read.
const QList<QByteArray> fixing{"Fixing ",
                               "[/s/d1t01.wav] ",
                               "(0:00.38) ",
                               "--> ",
                               "[/o/d1t01.flac] ",
                               ": ",
                               "  0% ",
                               "\b",
                               "\b",
                               "\b",
                               "\b",
                               "\b",
                               " 99% ",
                               "\b\b\b\b\b100% OK\n",
                               "Fixing [/s/d1t02.wav] (0:00.38) --> [/o/d1t02.flac] :   0% \b\b\b\b\b  1% ",
                               "\b\b\b\b\b 99% \b\b\b\b\b100% OK\nPadded last file with 1884 zero-bytes.\n"};
const QByteArray firstHead = "Fixing [/s/d1t01.wav] (0:00.38) --> [/o/d1t01.flac] : ";
const QByteArray secondHead = "Fixing [/s/d1t02.wav] (0:00.38) --> [/o/d1t02.flac] : ";

} // namespace

TEST(ShntoolDialect, GivesTheHeadOfALineWholeAndTheNumberBehindItApart)
{
    EXPECT_EQ(completed(fixing), QByteArrayList({firstHead, "  0% ", " 99% ", "\b\b\b\b\b100% OK\n", secondHead,
                                                 "  0% \b\b\b\b\b  1% \b\b\b\b\b 99% \b\b\b\b\b100% OK\n"
                                                 "Padded last file with 1884 zero-bytes.\n"}));
}

TEST(ShntoolDialect, LosesNothingButBackspacesAloneWhereverAReadParts)
{
    const QByteArray transcript = fixing.join();
    everyCut(transcript, [&](const QList<QByteArray>& pieces) {
        const QByteArrayList seen = completed(pieces);
        EXPECT_EQ(seen.join().replace('\b', ""), QByteArray(transcript).replace('\b', ""));
        for (const QByteArray& head : {firstHead, secondHead}) {
            EXPECT_TRUE(std::any_of(seen.begin(), seen.end(), [&](const auto& piece) { return piece.contains(head); }))
                << head.toStdString();
        }
    });
}

TEST(ShntoolDialect, WaitsForTheEndOfALineWithoutAHead)
{
    EXPECT_EQ(completed({"shntool [cmp]: ", "warning: ", "sizes differ\nComparing ", "[a] (0:01.00) and [b] ",
                         "(0:01.00) ", ": ", "100% ", "ERROR\n"}),
              QByteArrayList({"shntool [cmp]: warning: sizes differ\n",
                              "Comparing [a] (0:01.00) and [b] (0:01.00) : ", "100% ", "ERROR\n"}));
    EXPECT_EQ(completed({"no end"}), QByteArrayList({"no end"})) << "but at the end of output";
}

TEST(ShntoolDialect, PassesALineThatBeginsWithNoWord)
{
    EXPECT_EQ(completed({"\b 42% ", "\b\b 43% ", "OK\n", "     0:20.00 ", "x\n"}),
              QByteArrayList({"\b 42% ", "\b\b 43% ", "OK\n", "     0:20.00 ", "x\n"}));
}

TEST(ShntoolDialect, CutsNoCharacterOfATable)
{
    const QByteArray table = "    length     size\n     0:20.00   35280  B--   -xx  flac  1.0  /s/ü Ночь 🎶.flac\n";
    everyCut(table, [&](const QList<QByteArray>& pieces) {
        QString text;
        for (const QByteArray& piece : completed(pieces))
            text += decodeUtf8(piece).value_or(u"(lost)"_s);
        EXPECT_EQ(text, QString::fromUtf8(table));
    });
    EXPECT_EQ(completed({"  a\xc3"}), QByteArrayList({"  a", "\xc3"})) << "but for the end of output";
}

TEST(ShntoolDialect, TakesAColonInANameForNoEnd)
{
    EXPECT_EQ(completed({"Joining [/s/a : b.wav] ", "(0:01.00) --> [/o/joined.flac] (0:02.00) : ", "50% "}),
              QByteArrayList({"Joining [/s/a : b.wav] (0:01.00) --> [/o/joined.flac] (0:02.00) : ", "50% "}));
}

TEST(ShntoolDialect, ALineOfHashesHasNoHeadWhateverItsNameHolds)
{
    const QByteArray line = "abcdef0123456789abcdef0123456789  [shntool]  Live [2004] : 01.wav\n";
    EXPECT_EQ(completed({line}), QByteArrayList({line}));
    EXPECT_EQ(completed({line.first(40), line.sliced(40)}), QByteArrayList({line})) << "and it is held to its end";
    EXPECT_EQ(completed({"Hashing [a] (0:01.00) : ", "100% OK\n" + line}),
              QByteArrayList({"Hashing [a] (0:01.00) : ", "100% OK\n" + line}));
}

TEST(ShntoolDialect, HoldsNoMoreThanWhatFollowsTheLastHead)
{
    ShntoolDialect dialect;
    const QByteArray line = "Converting [a] (0:01.00) --> [b] :   0% 100% OK\n";
    const QByteArray behind = "  0% 100% OK\n";
    EXPECT_EQ(dialect.complete(line.repeated(3)), line.repeated(3).chopped(behind.size()));
    EXPECT_EQ(dialect.complete(line), behind + line.chopped(behind.size()));
    EXPECT_EQ(dialect.rest(), behind);
    EXPECT_EQ(dialect.rest(), QByteArray());
}

TEST(ShntoolDialect, IsFoundByTheToolsName)
{
    EXPECT_EQ(dialectFor(u"/tools/shntool"_s, {})->complete("Fixing "), QByteArray());
    EXPECT_EQ(dialectFor(u"/tools/shntool2"_s, {})->complete("Fixing "), "Fixing ");
}

TEST(ShntoolDialect, NumbersReachTheGrammarsWithoutTheHead)
{
    QStringList shown;
    for (const QByteArray& piece : completed(fixing)) {
        const auto reading = ConsoleGrammar::shntoolJoin.read(QString::fromUtf8(piece));
        if (reading.status) shown += *reading.status;
    }
    EXPECT_EQ(shown, QStringList({u"Joining Files:   0%"_s, u"Joining Files:  99%"_s, u"Joining Files: 100%"_s,
                                  u"Joining Files:   0%"_s}));
}
