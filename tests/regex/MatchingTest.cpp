#include "RegexTesting.h"
#include "regex/RegularExpressions.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(StringByMatching, GivesTheFirstMatch)
{
    EXPECT_EQ(stringByMatching(u"track 07 at 55% of 90%"_s, u"[0-9]+%"_s), u"55%"_s);
    EXPECT_EQ(stringByMatching(u"na\u00EFve \U0001D11E!"_s, u"\\W+$"_s), u" \U0001D11E!"_s);
}

TEST(StringByMatching, GivesNothingWithoutAMatch)
{
    EXPECT_EQ(stringByMatching(u"no number"_s, u"[0-9]+%"_s), std::nullopt);
    EXPECT_EQ(stringByMatching(u""_s, u"[0-9]+%"_s), std::nullopt);
}

TEST(StringByMatching, EmptyMatchIsAText)
{
    const OptionalText found = stringByMatching(u"abc"_s, u"x*"_s);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->isEmpty());
    EXPECT_TRUE(stringByMatching(u""_s, u"^$"_s));
    EXPECT_TRUE(stringByMatching(QString(), u"^$"_s));
}

TEST(StringByMatching, NoSubjectGivesNothing)
{
    EXPECT_EQ(stringByMatching(OptionalText(), u"a"_s), std::nullopt);
    EXPECT_EQ(stringByMatching(OptionalText(), OptionalText()), std::nullopt);
    EXPECT_EQ(stringByMatching(OptionalText(u"abc"_s), u"b"_s), u"b"_s);
}

TEST(StringByMatching, EverySearchStartsAtTheBeginning)
{
    RegexCache cache;
    const QString subject = ownText(u"a1 b2 c3");
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(match(cache, subject, u"[a-z][0-9]"_s), u"a1"_s);
    EXPECT_EQ(replace(cache, subject, u"[a-z][0-9]"_s, u"-"_s), u"- - -"_s);
    EXPECT_EQ(match(cache, subject, u"[a-z][0-9]"_s), u"a1"_s);
}

TEST(StringByMatching, SubjectsOfBothKindsGiveTheSame)
{
    const auto utf8 = EncodedText::fromUtf8("12\xE2\x82\xAC and 34\xE2\x82\xAC");
    const auto pattern = EncodedText::fromUtf8("[0-9]+\xE2\x82\xAC$");
    EXPECT_EQ(stringByMatching(*utf8, *pattern), u"34\u20AC"_s);
    EXPECT_EQ(stringByMatching(latin1Text("caf\xE9 100%"), latin1Text("\xE9 [0-9]+")), u"\u00E9 100"_s);
}

TEST(StringByMatching, RangeLimitsTheSearch)
{
    RegexCache cache;
    const QString subject = ownText(u"1 22 333 4444");
    const QString pattern = ownText(u"[0-9]+");
    RegexRequest request = RegexRequest::stringByMatching(subject, pattern);
    request.range = TextRange{4, 6};
    EXPECT_EQ(rkl_performRegexOp(cache, request), u"333"_s);
    const CachedRegex& entry = *cache.expressions.rkl_lastCachedRegex();
    EXPECT_EQ(entry.setToRange, (TextRange{4, 6}));
    EXPECT_EQ(entry.lastFindRange, (TextRange{4, 6}));
    EXPECT_EQ(entry.lastMatchRange, (TextRange{5, 3}));
    request.range = TextRange{10, 3};
    EXPECT_EQ(rkl_performRegexOp(cache, request), u"444"_s);
    request.range.reset();
    EXPECT_EQ(rkl_performRegexOp(cache, request), u"1"_s);
}

TEST(StringByMatching, OptionsAreIcuFlags)
{
    RegexCache cache;
    const QString subject = u"ABC"_s;
    const QString pattern = u"b"_s;
    RegexRequest request = RegexRequest::stringByMatching(subject, pattern);
    EXPECT_EQ(rkl_performRegexOp(cache, request), std::nullopt);
    request.options = UREGEX_CASE_INSENSITIVE;
    EXPECT_EQ(rkl_performRegexOp(cache, request), u"B"_s);
}

TEST(StringByMatching, ChangedSubjectIsSearchedAnew)
{
    RegexCache cache;
    QString subject = ownText(u"abc 1");
    EXPECT_EQ(match(cache, subject, u"[0-9]"_s), u"1"_s);
    subject.replace(4, 1, u'2'); // the cache shares the data, so this makes the subject another object
    EXPECT_EQ(match(cache, subject, u"[0-9]"_s), u"2"_s);
}

TEST(StringByMatching, BorrowedSubjectMayChangeBehindTheText)
{
    RegexCache cache;
    char16_t data[] = u"abc 1";
    const QString subject = QString::fromRawData(reinterpret_cast<QChar*>(data), 5);
    EXPECT_EQ(match(cache, subject, u"[0-9]"_s), u"1"_s);
    data[4] = u'2';
    EXPECT_EQ(match(cache, subject, u"[0-9]"_s), u"2"_s);
}

TEST(StringByMatching, BorrowedPatternMayChangeBehindTheText)
{
    RegexCache cache;
    char16_t data[] = u"[0-9]";
    const QString pattern = QString::fromRawData(reinterpret_cast<QChar*>(data), 5);
    EXPECT_EQ(match(cache, u"a1"_s, pattern), u"1"_s);
    data[1] = u'a';
    data[3] = u'z';
    EXPECT_EQ(match(cache, u"a1"_s, pattern), u"a"_s);
}
