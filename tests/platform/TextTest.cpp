#include "platform/text/Text.h"
#include "platform/errors/Exceptions.h"

#include <QLocale>

#include <limits>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(Text, SplitsAtEveryNewlineCharacterSoThatCrLfGivesAnEmptyLine)
{
    EXPECT_EQ(splitIntoLines(u"a\r\nb\u2028c"_s), QStringList({u"a"_s, u""_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(splitIntoLines(u""_s), QStringList({u""_s}));
}

TEST(Text, PieceThatDoesNotExistIsARangeFault)
{
    EXPECT_EQ(pieceAt({u"a"_s}, 0), u"a"_s);
    EXPECT_THROW(pieceAt({u"a"_s}, 1), RangeException);
    EXPECT_THROW(pieceAt({}, -1), RangeException);
}

TEST(Text, DecimalReadingTakesTheLongestNumberAtTheStart)
{
    EXPECT_EQ(doubleValue(u"  42% complete"), 42.0);
    EXPECT_EQ(doubleValue(u"7.5"), 7.5);
    EXPECT_EQ(doubleValue(u"-1.25e1x"), -12.5);
    EXPECT_EQ(doubleValue(u"1e"), 1.0);
    EXPECT_EQ(doubleValue(u"+3"), 3.0);
    EXPECT_EQ(doubleValue(u".5"), 0.5);
    EXPECT_EQ(doubleValue(u"abc"), 0.0);
    EXPECT_EQ(doubleValue(u"."), 0.0);
}

TEST(Text, DecimalReadingPastTheRangeGivesItsEnd)
{
    EXPECT_EQ(doubleValue(u"1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(doubleValue(u"-1e999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(doubleValue(u"0.1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(doubleValue(u"1e-999"), 0.0);
}

TEST(Text, TrimmingTakesTheSetsCharactersFromBothEndsAlone)
{
    EXPECT_EQ(trimmed(u" \t\u00a0a b \n", CharacterSet::WhiteSpace), u"a b \n"_s);
    EXPECT_EQ(trimmed(u" \r\na\nb\u2028 ", CharacterSet::WhiteSpaceAndNewlines), u"a\nb"_s);
    EXPECT_EQ(trimmed(u"\n a \n", CharacterSet::Newlines), u" a "_s);
    EXPECT_EQ(trimmed(u"\b\ba\bb\b", CharacterSet::Backspace), u"a\bb"_s);
    EXPECT_EQ(trimmed(u"  ", CharacterSet::WhiteSpace), u""_s);
}

TEST(Text, PartsOfATextAreHeldToItsRange)
{
    EXPECT_EQ(substringFrom(u"abc"_s, 1), u"bc"_s);
    EXPECT_EQ(substringTo(u"abc"_s, 2), u"ab"_s);
    EXPECT_EQ(substringFrom(u"abc"_s, 3), u""_s);
    EXPECT_THROW(substringFrom(u"abc"_s, 4), RangeException);
    EXPECT_THROW(substringTo(u"abc"_s, -1), RangeException);
}

TEST(Text, SixDecimalsAndAPointWhateverTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(fixedSix(1234.5), u"1234.500000"_s);
    QLocale::setDefault(before);
}

TEST(Text, AbsentTextAddsNothingAndPrintsAsTheEmptyOne)
{
    QString text = u"a"_s;
    appendText(text, std::nullopt);
    appendText(text, u"b"_s);
    EXPECT_EQ(text, u"ab"_s);
    const OptionalText absent;
    EXPECT_EQ(textOrEmpty(absent), u""_s);
}

TEST(Text, WholeNumbersAreHeldToTheirWidth)
{
    EXPECT_EQ(intValue(u" 12abc"), 12);
    EXPECT_EQ(intValue(u"99999999999"), 2147483647);
    EXPECT_EQ(intValue(u"-99999999999"), -2147483647 - 1);
    EXPECT_EQ(longLongValue(u"99999999999"), 99999999999LL);
    EXPECT_EQ(intValue(u""), 0);
}

TEST(Text, BytesThatAreNotUtf8GiveNoText)
{
    EXPECT_EQ(decodeUtf8("caf\xC3\xA9"), u"café"_s);
    EXPECT_EQ(decodeUtf8("caf\xC3"), std::nullopt);
    EXPECT_EQ(decodeUtf8("\xA9"), std::nullopt);
    EXPECT_EQ(decodeUtf8(""), QString());
}

TEST(Text, EndTestLooksAtOneCharacterOnly)
{
    EXPECT_TRUE(zoltEndsWith(u"abc"_s, u"c"_s));
    EXPECT_FALSE(zoltEndsWith(u"abc"_s, u"bc"_s));
    EXPECT_THROW(zoltEndsWith(u""_s, u"c"_s), RangeException);
    EXPECT_TRUE(zoltStartsWith(u"abc"_s, u"ab"_s));
    EXPECT_FALSE(zoltStartsWith(u"abc"_s, u"bc"_s));
    EXPECT_FALSE(zoltStartsWith(u"abc"_s, u""_s));
}

TEST(Paths, AreTakenApartByTheirText)
{
    EXPECT_EQ(path::lastComponent(u"/a/b.flac"_s), u"b.flac"_s);
    EXPECT_EQ(path::lastComponent(u"/a/b/"_s), u"b"_s);
    EXPECT_EQ(path::lastComponent(u"/"_s), u"/"_s);
    EXPECT_EQ(path::deletingLastComponent(u"/a/b.flac"_s), u"/a"_s);
    EXPECT_EQ(path::deletingLastComponent(u"/a"_s), u"/"_s);
    EXPECT_EQ(path::deletingLastComponent(u"a"_s), u""_s);
    EXPECT_EQ(path::extension(u"/a.b/c"_s), u""_s);
    EXPECT_EQ(path::extension(u"/a/.hidden"_s), u""_s);
    EXPECT_EQ(path::extension(u"/a/x.tar.gz"_s), u"gz"_s);
    EXPECT_EQ(path::deletingExtension(u"/a/x.tar.gz"_s), u"/a/x.tar"_s);
    EXPECT_EQ(path::appendingComponent(u"/a/"_s, u"b"_s), u"/a/b"_s);
    EXPECT_EQ(path::appendingComponent(u"/"_s, u"b"_s), u"/b"_s);
    EXPECT_EQ(path::appendingExtension(u"/a/b"_s, u"wav"_s), u"/a/b.wav"_s);
    EXPECT_EQ(path::appendingExtension(u"a b//"_s, u"wav"_s), u"a b.wav"_s);
}
