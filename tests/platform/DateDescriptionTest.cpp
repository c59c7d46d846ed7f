#include "platform/text/DateDescription.h"

#include "support/test.h"

#include <QDateTime>
#include <QTimeZone>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

QString described(const char* iso)
{
    return dateDescription(QDateTime::fromString(QLatin1StringView(iso), Qt::ISODate));
}

} // namespace

TEST(DateDescription, ADateOfGmtHasAPositiveZeroOffset)
{
    EXPECT_EQ(described("2009-01-05T07:08:09Z"), u"2009-01-05 07:08:09 +0000"_s);
}

TEST(DateDescription, OffsetsHaveASignAndFourDigits)
{
    EXPECT_EQ(described("2009-12-31T23:59:58-05:00"), u"2009-12-31 23:59:58 -0500"_s);
    EXPECT_EQ(described("2009-12-31T23:59:58+05:45"), u"2009-12-31 23:59:58 +0545"_s);
    EXPECT_EQ(described("2009-12-31T23:59:58-03:30"), u"2009-12-31 23:59:58 -0330"_s);
}

TEST(DateDescription, TheOffsetIsTheOneInForceOnThatDay)
{
    const QTimeZone zone("Europe/Berlin");
    ASSERT_TRUE(zone.isValid());
    EXPECT_EQ(dateDescription(QDateTime({2010, 7, 1}, {12, 0}, zone)), u"2010-07-01 12:00:00 +0200"_s);
    EXPECT_EQ(dateDescription(QDateTime({2010, 1, 1}, {12, 0}, zone)), u"2010-01-01 12:00:00 +0100"_s);
}
