// Names out of setlists as people write them; recorded texts, and what the patterns make of them, odd or not.
#include "shntool/TrackNameList.h"

#include <QStringList>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(TrackNameList, BeginsAtTheFirstLineNumberedOne)
{
    EXPECT_EQ(trackNamesIn(u"1977\n2. Early\n1. Intro\n2. Jam\n"_s), u"Intro\nJam\n"_s);
    EXPECT_EQ(trackNamesIn(u"01 One\n"_s), u"One\n"_s);
    EXPECT_EQ(trackNamesIn(u"10. Ten\n11. Eleven\n"_s), QString());
    EXPECT_EQ(trackNamesIn(QString()), QString());
}

TEST(TrackNameList, ANumberInBracketsDoesNotBeginTheListButCountsInIt)
{
    EXPECT_EQ(trackNamesIn(u"(1) One\n(2) Two\n"_s), QString());
    EXPECT_EQ(trackNamesIn(u"[1] One\n[2] Two\n"_s), QString());
    EXPECT_EQ(trackNamesIn(u"1) One\n(2) Two\n[3] Three\n[4.] Four\n"_s), u"One\nTwo\nThree\nFour\n"_s);
}

TEST(TrackNameList, TimesAtTheEndGoAndTheBlankBeforeThemStays)
{
    EXPECT_EQ(trackNamesIn(u"1. One 4:05\n2. Two [1:02:03]\n3. Opening 23:15\n4. Four (5.10)\n"_s),
              u"One \nTwo \nOpening \nFour \n"_s);
    EXPECT_EQ(trackNamesIn(u"1. At 12:34 Blues 12:34\n"_s), u"At \n"_s)
        << "the time's text stands twice: the name is cut at the first";
    EXPECT_EQ(trackNamesIn(u"1. Song 3:10 >\n"_s), u"Song 3:10 >\n"_s) << "no time at the end";
}

TEST(TrackNameList, ANameWithoutTextIsBlankAndOneOfATimeAloneIsEmpty)
{
    EXPECT_EQ(trackNamesIn(u"1. One\n2.\n3.  \n4. 5:10\n"_s), u"One\n(blank)\n(blank)\n\n"_s);
}

TEST(TrackNameList, DatesAreSkippedBeforeAndWithinTheList)
{
    EXPECT_EQ(trackNamesIn(u"5/8/1977 Somewhere\n1. One\n5/8/1977 Somewhere\n05-08-77 Short\n12 31 1999 x\n"_s),
              u"One\n-08-77 Short\n"_s);
    EXPECT_EQ(trackNamesIn(u"1.1.1977\n1. One\n"_s), u"One\n"_s);
    EXPECT_EQ(trackNamesIn(u"1. One\n1977-05-08\n"_s), u"One\n-05-08\n"_s) << "a year first is no date here";
}

TEST(TrackNameList, NumbersAfterTheStartStandInAnyOrder)
{
    EXPECT_EQ(trackNamesIn(u"1. One\n3. Three\n2. Two\n1. One again\n"_s), u"One\nThree\nTwo\nOne again\n"_s);
    EXPECT_EQ(trackNamesIn(u"1. One\n99 Balloons\n20th Street\n"_s), u"One\nBalloons\nth Street\n"_s);
}

TEST(TrackNameList, OtherLinesAreIgnored)
{
    EXPECT_EQ(trackNamesIn(u"Set 1:\n1. One\nEncore:\n  2. indented\n\t3. tabbed\nd1t04 Named\n4. Four\n"_s),
              u"One\nFour\n"_s);
}

TEST(TrackNameList, EveryKindOfLineEndSeparates)
{
    EXPECT_EQ(trackNamesIn(u"1. One\r\n2. Two\r3. Three\u2028"
                           u"4. Four\u0085"
                           u"5. Five"_s),
              u"One\nTwo\nThree\nFour\nFive\n"_s);
}

TEST(TrackNameList, OtherScriptsAndDigitsOfTheirsAreText)
{
    EXPECT_EQ(trackNamesIn(u"1. Ночь 3:00\n2、夜\n３. 全角\n"_s), u"Ночь \n、夜\n"_s);
}

TEST(TrackNameList, AShowAsItWasPostedGivesItsNames)
{
    const QString show = uR"(The Nobodies
Barn Hall, Somewhere, NY
5/8/1977

Source: SBD > Reel > DAT; 23 tracks, 2 discs
24bit/96kHz

Disc 1 (Set 1)
01. Intro
02. Long Road Home -> [12:45]
03. Jam >
04. Tuning 0:45
05. The 59th Turn* 7:10

Disc 2 (Set 2)
1. Drums [4:20]
2. 1999
3. Ночь (reprise) 1:05:20
Encore:
4. Goodnight (4:01)

* with a guest on sax
1 = first time played
Total: 79:59
)"_s;
    EXPECT_EQ(trackNamesIn(show), u"Intro\nLong Road Home -> \nJam >\nTuning \nThe 59th Turn* \nDrums \n1999\n"
                                  "Ночь (reprise) \nGoodnight \n= first time played\n"_s);
}
