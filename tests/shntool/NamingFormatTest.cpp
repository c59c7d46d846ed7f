#include "ShntoolFixture.h"
#include "platform/errors/Exceptions.h"
#include "shntool/SHNtoolOutputNamingFormatParser.h"

using namespace zolt;
using namespace zolt::test;

namespace {

class NamingFormat : public testing::Test
{
protected:
    QString line(const QString& format) const
    {
        RegisteredSettings::setFormat(format);
        return SHNtoolOutputNamingFormatParser().getFormattedLineWithNameTimeTrackNumber(u"Jam"_s, u"3:05"_s, u"02"_s);
    }
    QString total(const QString& format) const
    {
        RegisteredSettings::setFormat(format);
        return SHNtoolOutputNamingFormatParser().getFormattedTotalLine(u"15:25"_s);
    }

private:
    RegisteredSettings settings_;
};

} // namespace

TEST_F(NamingFormat, IsNumberNameAndTimeAtFirst)
{
    const SHNtoolOutputNamingFormatParser parser;
    EXPECT_EQ(parser.getFormattedLineWithNameTimeTrackNumber(u"Jam"_s, u"3:05"_s, u"02"_s), u"02. Jam 3:05\n"_s);
    EXPECT_EQ(parser.getFormattedTotalLine(u"15:25"_s), u"15:25\n"_s);
}

TEST_F(NamingFormat, EveryWordIsFilledWhereverItStands)
{
    EXPECT_EQ(line(u"%time %number/%number (%name)"_s), u"3:05 02/02 (Jam)\n"_s);
    EXPECT_EQ(line(u"plain"_s), u"plain\n"_s);
}

TEST_F(NamingFormat, WordsThatComeInWithANameAreFilledInTurn)
{
    EXPECT_EQ(
        SHNtoolOutputNamingFormatParser().getFormattedLineWithNameTimeTrackNumber(u"a %time b"_s, u"1:00"_s, u"01"_s),
        u"01. a 1:00 b 1:00\n"_s);
}

TEST_F(NamingFormat, SlashAtTheEndTakesOneCharacterMoreAlong)
{
    EXPECT_EQ(line(u"%number. %name!/"_s), u"02. Jam\n"_s);
    EXPECT_EQ(line(u"/%number. %name!/"_s), u"02. Jam\n"_s);
    EXPECT_EQ(line(u"/%name"_s), u"Jam\n"_s);
}

TEST_F(NamingFormat, EmptyOneIsOutOfRange)
{
    EXPECT_THROW(line(QString()), RangeException);
    EXPECT_THROW(total(QString()), RangeException);
    EXPECT_THROW(line(u"/"_s), RangeException);
}

TEST_F(NamingFormat, TotalKeepsWhatStandsBeforeTheTime)
{
    EXPECT_EQ(total(u"%number %name - %time"_s), u"- 15:25\n"_s);
    EXPECT_EQ(total(u"%time %number. %name"_s), u"15:25\n"_s);
    EXPECT_EQ(total(u"%number. (%time) %name"_s), u"(15:25)\n"_s);
    EXPECT_EQ(total(u"%name [%time,%time] x"_s), u"[15:25,15:25]\n"_s);
}

TEST_F(NamingFormat, TotalOfAFormatWithoutATimeIsWhatFollowsTheLastWord)
{
    EXPECT_EQ(total(u"%number. %name"_s), u"\n"_s);
    EXPECT_EQ(total(u"%number. %name end of line"_s), u"end of line\n"_s);
    EXPECT_EQ(total(u"no word"_s), u"no word\n"_s);
}
