#include "ui/pages/AboutPage.h"

#include "platform/Product.h"
#include "ui/WindowFixture.h"

#include <QLabel>
#include <QPushButton>
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
    program_.selectTab(aboutTab());
    ASSERT_TRUE(runUntil([this] { return row(u"flac"_s) != nullptr; }));
    EXPECT_EQ(row(u"flac"_s)->text(1), u"missing"_s);
    EXPECT_EQ(row(u"flac"_s)->text(3), u"apt install flac"_s);
    tool(u"flac"_s, "echo flac 1.4.2\n");
    program_.selectTab(0);
    runPosted();
    program_.selectTab(aboutTab());
    runPosted();
    EXPECT_TRUE(runUntil([this] { return row(u"flac"_s) && row(u"flac"_s)->text(1) == u"found"; }));
    EXPECT_EQ(row(u"flac"_s)->text(2), u"1.4.2"_s);
}

TEST_F(AboutPageTest, ToolsThatWereInstalledMeanwhileArePutInPlaceOnAPress)
{
    program_.selectTab(aboutTab());
    ASSERT_TRUE(runUntil([this] { return row(u"metaflac"_s) != nullptr; }));
    EXPECT_EQ(row(u"metaflac"_s)->text(1), u"missing"_s);
    QTest::mouseClick(&widget<QPushButton>("refillButton"), Qt::LeftButton);
    EXPECT_TRUE(runUntil([this] { return row(u"metaflac"_s) && row(u"metaflac"_s)->text(1) == u"found"; }));
    EXPECT_TRUE(widget<QLabel>("placeLabel").text().contains(u"metaflac"));
    EXPECT_TRUE(QFile::exists(tools_.filePath(u".placed"_s)));
}

} // namespace
} // namespace zolt::test
