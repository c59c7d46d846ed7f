#include "RegexTesting.h"
#include "regex/RegularExpressions.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

QString repeated(QStringView piece, int times)
{
    return piece.toString().repeated(times);
}

} // namespace

TEST(StringByReplacing, ReplacesEveryMatch)
{
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(u"a 5% b 10% c"_s, u"[0-9]+%"_s, u""_s), u"a  b  c"_s);
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(u"k=v; a=b"_s, u"(\\w)=(\\w)"_s, u"$2\\$$1"_s),
              u"v$k; b$a"_s);
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(u"ab"_s, u""_s + u"x*"_s, u"-"_s), u"-a-b-"_s);
}

TEST(StringByReplacing, WithoutAMatchGivesTheSubject)
{
    const QString subject = ownText(u"no number");
    const QString result = stringByReplacingOccurrencesOfRegexWithString(subject, u"[0-9]+%"_s, u"#"_s);
    EXPECT_EQ(result.constData(), subject.constData()) << "the copy shares its data";
    const EncodedText bytes = latin1Text("caf\xE9");
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(bytes, u"[0-9]"_s, u"#"_s), u"caf\u00E9"_s);
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(u""_s, u"[0-9]"_s, u"#"_s), u""_s);
}

TEST(StringByReplacing, ResultNeverBorrowsTheSubjectsData)
{
    char16_t data[] = u"abc";
    const QString subject = QString::fromRawData(reinterpret_cast<QChar*>(data), 3);
    const QString result = stringByReplacingOccurrencesOfRegexWithString(subject, u"[0-9]"_s, u"#"_s);
    data[0] = u'#';
    EXPECT_EQ(result, u"abc"_s);
}

TEST(StringByReplacing, NoSubjectGivesNothing)
{
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(OptionalText(), u"a"_s, u"b"_s), std::nullopt);
}

TEST(StringByReplacing, AllKindsOfTextMayMix)
{
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(*EncodedText::fromUtf8("1\xE2\x82\xAC 2\xE2\x82\xAC"),
                                                            latin1Text("[0-9]"),
                                                            *EncodedText::fromUtf8("\xE2\x88\x9E")),
              u"\u221E\u20AC \u221E\u20AC"_s);
}

TEST(StringByReplacing, LongerResultTakesTheSecondPass)
{
    // 100 units get room for 100 + 50 + 16 + 2 * 8 in the first pass; the result has 800.
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(repeated(u"x", 100), u"x"_s, u"12345678"_s),
              repeated(u"12345678", 100));
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(repeated(u"xy", 50), u"(x)"_s, u"[$1$1$1$1$1]"_s),
              repeated(u"[xxxxx]y", 50));
    EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(latin1Text(QByteArray(100, 'x')), u"x"_s, u"12345678"_s),
              repeated(u"12345678", 100));
}

TEST(StringByReplacing, EveryLengthAroundTheFirstRoomIsRight)
{
    for (int times = 1; times < 40; ++times) {
        const QString tail = repeated(u"t", 3);
        EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(repeated(u"x", times) + tail, u"x"_s, u"abc"_s),
                  repeated(u"abc", times) + tail);
        EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(tail + repeated(u"x", times), u"x"_s, u"ab"_s),
                  tail + repeated(u"ab", times));
    }
}

TEST(StringByReplacing, LargeTextsGoThroughScratchSpaceWhichIsFreedAgain)
{
    RegexCache cache;
    const QString large = repeated(u"x1", 60000);
    EXPECT_EQ(replace(cache, large, u"[0-9]"_s, u""_s), repeated(u"x", 60000));
    EXPECT_EQ(replace(cache, large, u"[0-9]"_s, u"12345"_s), repeated(u"x12345", 60000));
    const QByteArray longReplacement(70000, 'r');
    EXPECT_EQ(replace(cache, u"a1b"_s, u"[0-9]"_s, latin1Text(longReplacement)),
              u"a"_s + QString::fromLatin1(longReplacement) + u"b"_s);
    EXPECT_EQ(replace(cache, u"a123456b"_s, u"[0-9]"_s, latin1Text(longReplacement)),
              u"a"_s + QString::fromLatin1(longReplacement.repeated(6)) + u"b"_s);
    EXPECT_EQ(cache.rkl_scratchBuffer.blocksInUse(), 0U);
}

TEST(StringByReplacing, RangeGivesTheTextOfTheRange)
{
    RegexCache cache;
    const QString subject = ownText(u"1 22 333 4");
    const QString pattern = u"[0-9]+"_s;
    const QString mark = u"#"_s;
    RegexRequest request = RegexRequest::stringByReplacingOccurrencesOfRegexWithString(subject, pattern, mark);
    request.range = TextRange{2, 6};
    EXPECT_EQ(rkl_performRegexOp(cache, request), u"# #"_s);
    request.range = TextRange{1, 1};
    EXPECT_EQ(rkl_performRegexOp(cache, request), u" "_s);
}
