#include "encode/EncodeTab.h"
#include "ui/WindowFixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QSlider>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class EncodePageTest : public WindowTest
{
protected:
    EncodePageTest()
    {
        program_.selectTab(1);
        runPosted();
    }
    EncodeTab& encodeTab() { return program_.program().tab<EncodeTab>(); }
    bool says(const char* label, const QString& text)
    {
        return runUntil([&] { return widget<QLabel>(label).text() == text; });
    }
    void choose(int cell)
    {
        auto& button = widget<QAbstractButton>(qPrintable(cellName(cell)));
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
        runPosted();
    }
    /// Both matrices of that name lie in the window; the decode page's has two cells.
    static QString cellName(int cell) { return u"outputFormatMatrix_%1"_s.arg(cell); }
};

TEST_F(EncodePageTest, LabelFollowsTheLevel)
{
    EXPECT_TRUE(says("flacLevelLabel", u"Level 5 of 8, the usual"_s));
    widget<QSlider>("flacSlider").setFocus();
    QTest::keyClick(&widget<QSlider>("flacSlider"), Qt::Key_End);
    EXPECT_EQ(encodeTab().flacSlider->intValue(), 8);
    EXPECT_TRUE(says("flacLevelLabel", u"Level 8 of 8, smallest files"_s));
    EXPECT_TRUE(says("apeLevelLabel", u"Level 2000, normal"_s));
}

TEST_F(EncodePageTest, OptionsOfOtherFormatsAreGreyedWithTheReason)
{
    EXPECT_TRUE(widget<QSlider>("flacSlider").isEnabled());
    EXPECT_FALSE(widget<QAbstractButton>("generateMD5Button").isEnabled());
    EXPECT_EQ(widget<QAbstractButton>("generateMD5Button").toolTip(), u"For SHN files only"_s);
    choose(4); // APE
    EXPECT_EQ(encodeTab().target(), u"APE"_s);
    EXPECT_TRUE(widget<QSlider>("apeSlider").isEnabled());
    EXPECT_FALSE(widget<QSlider>("flacSlider").isEnabled());
    EXPECT_EQ(widget<QSlider>("flacSlider").toolTip(), u"For FLAC files only"_s);
}

} // namespace
} // namespace zolt::test
