#include "platform/text/Counts.h"

#include <QLocale>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

/// Another locale for as long as it lives.
class UnderLocale
{
public:
    explicit UnderLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~UnderLocale() { QLocale::setDefault(QLocale::system()); }
};

} // namespace

TEST(Counts, NounsFollowTheirCount)
{
    EXPECT_EQ(counted(0, u"file"_s), u"0 files"_s);
    EXPECT_EQ(counted(1, u"file"_s), u"1 file"_s);
    EXPECT_EQ(counted(2, u"file"_s), u"2 files"_s);
}

TEST(Counts, NumbersAreGroupedAsTheLocaleDoes)
{
    const UnderLocale english(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(counted(20000, u"file"_s), u"20,000 files"_s);
    const UnderLocale german(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(grouped(1234567), u"1.234.567"_s);
}

TEST(Counts, ClockTellsMinutesAndFromAnHourOnHours)
{
    EXPECT_EQ(clockText(0), u"0:00"_s);
    EXPECT_EQ(clockText(7999), u"0:07"_s);
    EXPECT_EQ(clockText(250'000), u"4:10"_s);
    EXPECT_EQ(clockText(3'850'000), u"1:04:10"_s);
}
