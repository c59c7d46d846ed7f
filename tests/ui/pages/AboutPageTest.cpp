#include "ui/pages/AboutPage.h"

#include "platform/Product.h"
#include "ui/WindowFixture.h"

#include <QTreeWidget>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class AboutPageTest : public WindowTest
{
protected:
    QTreeWidgetItem* row(const QString& name)
    {
        return widget<QTreeWidget>("toolsList").findItems(name, Qt::MatchExactly).value(0);
    }
};

TEST_F(AboutPageTest, ShowsNameVersionAndBuild)
{
    EXPECT_EQ(widget<QLabel>("ZoltTitleTextField").text(),
              u"%1 %2"_s.arg(QLatin1String(product::name), QLatin1String(product::version)));
    EXPECT_EQ(widget<QLabel>("buildTextField").text(), u"(Build %1)"_s.arg(QLatin1String(product::build)));
}

TEST_F(AboutPageTest, ShowsWhichToolsAreMissingAndWhatBringsThem)
{
    ASSERT_NE(row(u"flac"_s), nullptr);
    EXPECT_EQ(row(u"flac"_s)->text(1), u"missing"_s);
    EXPECT_EQ(row(u"mkisofs"_s)->text(2), u"genisoimage"_s);
    tool(u"flac"_s, "exit 0\n");
    program_.selectTab(aboutTab());
    runPosted();
    EXPECT_EQ(row(u"flac"_s)->text(1), u"found"_s);
}

} // namespace
} // namespace zolt::test
