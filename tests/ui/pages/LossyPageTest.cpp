#include "lossy/LossyTab.h"
#include "lossy/LossyTitles.h"
#include "ui/WindowFixture.h"
#include "ui/pages/ChoicesArea.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QWheelEvent>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class LossyPageTest : public WindowTest
{
protected:
    LossyPageTest()
    {
        program_.selectTab(6);
        runPosted();
    }
    LossyTab& lossyTab() { return program_.program().tab<LossyTab>(); }
    bool says(const QString& text)
    {
        return runUntil([&] { return widget<QLabel>("levelLabel").text() == text; });
    }
    /// Clicks a cell of one of the page's matrices.
    void choose(const char* cell)
    {
        auto& button = *window().page()->findChild<QAbstractButton*>(QLatin1String(cell));
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
        runPosted();
    }
    /// Which of the three levels can be set, as control and label show it alike.
    QStringList enabledLevels()
    {
        const std::pair<const char*, const char*> rows[] = {
            {"comboBox", "comboLabel"}, {"slider", "sliderLabel"}, {"stepperTextField", "stepperLabel"}};
        QStringList enabled;
        for (const auto& [control, label] : rows) {
            const bool can = widget<QWidget>(control).isEnabled();
            EXPECT_EQ(widget<QLabel>(label).isEnabled(), can) << label;
            if (can) enabled += QLatin1String(control);
        }
        return enabled;
    }
};

} // namespace

TEST_F(LossyPageTest, WhatDoesNotApplyIsGreyedWithItsLabelAndTellsWhy)
{
    EXPECT_EQ(enabledLevels(), QStringList(u"comboBox"_s));
    EXPECT_EQ(widget<QSlider>("slider").toolTip(), u"For MP3 with VBR alone"_s);
    choose("mp3Matrix_1");
    EXPECT_EQ(enabledLevels(), QStringList(u"slider"_s));
    choose("outputFormatMatrix_1");
    EXPECT_EQ(enabledLevels(), QStringList(u"comboBox"_s));
    choose("aacMatrix_3");
    EXPECT_EQ(enabledLevels(), QStringList(u"stepperTextField"_s));
    EXPECT_TRUE(widget<QSpinBox>("stepper").isEnabled());
    EXPECT_EQ(widget<QComboBox>("comboBox").toolTip(), u"VBR goes by quality, not by bit rate"_s);
}

TEST_F(LossyPageTest, TheLineBesideTheLevelSaysWhatItMeans)
{
    EXPECT_TRUE(says(u"160 kbit/s, 1.2 MB a minute"_s));
    choose("mp3Matrix_1");
    EXPECT_TRUE(says(u"VBR 3: about 175 kbit/s, 1.3 MB a minute"_s));
    widget<QSlider>("slider").setFocus();
    QTest::keyClick(&widget<QSlider>("slider"), Qt::Key_Home);
    EXPECT_TRUE(says(u"VBR 0: about 245 kbit/s, 1.8 MB a minute"_s));
    choose("outputFormatMatrix_1");
    choose("aacMatrix_3");
    EXPECT_TRUE(says(u"quality 88 of 127"_s));
}

TEST_F(LossyPageTest, TheQualityStandsInItsFieldAlone)
{
    auto& field = widget<QLineEdit>("stepperTextField");
    EXPECT_EQ(field.text(), u"88"_s);
    EXPECT_FALSE(field.hasSelectedText()) << "nobody can type there yet";
    EXPECT_FALSE(widget<QSpinBox>("stepper").findChild<QLineEdit*>()->isVisible());
    choose("outputFormatMatrix_1");
    choose("aacMatrix_3");
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, u"12"_s);
    EXPECT_EQ(lossyTab().stepperLevel(), 12);
    QTest::keyClicks(&field, u"8"_s);
    runPosted();
    EXPECT_EQ(field.text(), u"12"_s) << "128 is put back at once";
    widget<QSpinBox>("stepper").stepUp();
    runPosted();
    EXPECT_EQ(field.text(), u"13"_s);
    EXPECT_EQ(lossyTab().stepperLevel(), 13);
}

TEST_F(LossyPageTest, TheWheelScrollsPastAControlThatDoesNotHaveTheKeyboard)
{
    choose("mp3Matrix_1");
    window().resize(window().minimumSize());
    runPosted();
    auto& slider = widget<QSlider>("slider");
    const auto* const bar = window().page()->findChild<ChoicesArea*>()->verticalScrollBar();
    const auto turn = [](QWidget& over) {
        const QPointF middle = over.rect().center();
        QWheelEvent down(middle, over.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&down); // a sent one would not go on to the widget below
        qApp->notify(&over, &down);
        runPosted();
    };
    window().setFocus();
    turn(slider);
    EXPECT_EQ(lossyTab().slider->intValue(), 3);
    EXPECT_GT(bar->value(), 0);
    slider.setFocus();
    turn(slider);
    EXPECT_NE(lossyTab().slider->intValue(), 3);
}

} // namespace zolt::test
