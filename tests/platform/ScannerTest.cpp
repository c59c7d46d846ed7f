#include "platform/text/Scanner.h"

#include "support/test.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(Scanner, TakesUpToAText)
{
    Scanner scanner(u"Hashing [a [1].wav] (0:20)"_s);
    QString name;
    EXPECT_TRUE(scanner.scanUpTo(u"["_s));
    EXPECT_TRUE(scanner.scanUpTo(u"] ("_s, &name));
    EXPECT_EQ(name, u"[a [1].wav"_s);
    EXPECT_EQ(scanner.location(), 18);
}

TEST(Scanner, TakesTheRestWhereTheTextDoesNotFollow)
{
    Scanner scanner(u"no mark here "_s);
    QString taken;
    EXPECT_TRUE(scanner.scanUpTo(u"%"_s, &taken));
    EXPECT_EQ(taken, u"no mark here "_s);
    EXPECT_TRUE(scanner.isAtEnd());
}

TEST(Scanner, SkipsBlanksAndNewlinesBeforeEveryScanAndKeepsThoseBehind)
{
    Scanner scanner(u" \n\t one \r\n two"_s);
    QString taken;
    EXPECT_TRUE(scanner.scanUpTo(u"two"_s, &taken));
    EXPECT_EQ(taken, u"one \r\n "_s);
    EXPECT_TRUE(scanner.scanString(u"two"_s));
}

TEST(Scanner, LeavesTargetAndLocationWhenNothingIsTaken)
{
    Scanner scanner(u"  [x"_s);
    QString taken = u"before"_s;
    EXPECT_FALSE(scanner.scanUpTo(u"["_s, &taken));
    EXPECT_FALSE(scanner.scanString(u"x"_s, &taken));
    EXPECT_FALSE(scanner.scanSet(CharacterSet::DecimalDigits, &taken));
    EXPECT_FALSE(scanner.scanUpToSet(CharacterSet::WhiteSpace, nullptr) && scanner.scanUpTo(u"x"_s, &taken));
    EXPECT_EQ(taken, u"before"_s);
}

TEST(Scanner, ATextThatStartsWithABlankIsFoundBehindThePiece)
{
    Scanner scanner(u"12 seconds remaining"_s);
    QString seconds;
    EXPECT_TRUE(scanner.scanUpTo(u" seconds remaining"_s, &seconds));
    EXPECT_EQ(seconds, u"12"_s);
    EXPECT_FALSE(scanner.scanString(u" seconds"_s)) << "the blank is skipped before the text is looked for";
    EXPECT_TRUE(scanner.scanString(u"seconds"_s));
}

TEST(Scanner, TakesWhatIsOfASetAndUpToASet)
{
    Scanner scanner(u"Track 01: 3:05.12 rest"_s);
    QString number;
    QString time;
    EXPECT_TRUE(scanner.scanUpToSet(CharacterSet::DecimalDigits));
    EXPECT_TRUE(scanner.scanSet(CharacterSet::DecimalDigits, &number));
    EXPECT_TRUE(scanner.scanUpToSet(CharacterSet::DecimalDigits));
    EXPECT_TRUE(scanner.scanUpToSet(CharacterSet::WhiteSpaceAndNewlines, &time));
    EXPECT_EQ(number, u"01"_s);
    EXPECT_EQ(time, u"3:05.12"_s);
}

TEST(Scanner, ReadsNumbersAndStopsBehindThem)
{
    Scanner scanner(u" -12 3.5e2x +7 99999999999"_s);
    int whole = 0;
    double decimal = 0.0;
    EXPECT_TRUE(scanner.scanInt(&whole));
    EXPECT_EQ(whole, -12);
    EXPECT_TRUE(scanner.scanDouble(&decimal));
    EXPECT_DOUBLE_EQ(decimal, 350.0);
    EXPECT_FALSE(scanner.scanInt(&whole));
    EXPECT_FALSE(scanner.scanDouble(&decimal));
    EXPECT_EQ(whole, -12);
    EXPECT_DOUBLE_EQ(decimal, 350.0);
    EXPECT_TRUE(scanner.scanString(u"x"_s));
    EXPECT_TRUE(scanner.scanInt(&whole));
    EXPECT_EQ(whole, 7);
    EXPECT_TRUE(scanner.scanInt(&whole));
    EXPECT_EQ(whole, 2147483647);
}

TEST(Scanner, ALoneSignIsNoNumber)
{
    Scanner scanner(u"- 5"_s);
    int whole = 3;
    EXPECT_FALSE(scanner.scanInt(&whole));
    EXPECT_EQ(whole, 3);
}

TEST(Scanner, IsAtEndWhenOnlyBlanksAreLeft)
{
    Scanner scanner(u"a \n "_s);
    EXPECT_FALSE(scanner.isAtEnd());
    EXPECT_TRUE(scanner.scanString(u"a"_s));
    EXPECT_TRUE(scanner.isAtEnd());
    EXPECT_EQ(scanner.location(), 1);
    EXPECT_FALSE(scanner.scanUpTo(u"x"_s));
    EXPECT_TRUE(Scanner(QString()).isAtEnd());
}

TEST(Scanner, AnEmptyStopTakesTheRest)
{
    Scanner scanner(u"all of it"_s);
    QString taken;
    EXPECT_TRUE(scanner.scanUpTo(QString(), &taken));
    EXPECT_EQ(taken, u"all of it"_s);
}
