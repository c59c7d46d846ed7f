#include "ui/pages/ChoicesArea.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

/// Ten lines of choices, a number and a text among them, where there is room for a few.
class ChoicesAreaTest : public testing::Test
{
protected:
    ChoicesAreaTest()
    {
        area_.fill([](QWidget& choices) {
            auto* const column = new QVBoxLayout(&choices);
            column->addWidget(new QRadioButton(&choices));
            column->addWidget(new QSpinBox(&choices));
            column->addWidget(new QPlainTextEdit(u"a\n"_s.repeated(200), &choices));
            for (int line = 0; line < 10; ++line)
                column->addWidget(new QRadioButton(&choices));
        });
        area_.resize(300, 150);
        area_.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&area_));
        area_.setFocus();
    }
    template <class Widget> Widget& choice() { return *area_.widget()->findChild<Widget*>(); }
    /// One notch of a person's wheel over the widget.
    static void turnWheel(QWidget& widget)
    {
        const QPointF place = widget.rect().center();
        QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&widget, &event);
    }
    int scrolled() const { return area_.verticalScrollBar()->value(); }

    ChoicesArea area_;
};

TEST_F(ChoicesAreaTest, TheWheelScrollsTheChoices)
{
    ASSERT_GT(area_.verticalScrollBar()->maximum(), 0);
    turnWheel(choice<QRadioButton>());
    EXPECT_GT(scrolled(), 0);
}

TEST_F(ChoicesAreaTest, OverANumberItTurnsTheNumberOnlyOnceThatHasTheKeyboard)
{
    auto& number = choice<QSpinBox>();
    number.setValue(5);
    turnWheel(number);
    EXPECT_EQ(number.value(), 5);
    const int before = scrolled();
    EXPECT_GT(before, 0);
    number.setFocus();
    turnWheel(number);
    EXPECT_EQ(number.value(), 4);
    EXPECT_EQ(scrolled(), before);
}

TEST_F(ChoicesAreaTest, OverATextItScrollsTheText)
{
    auto& text = choice<QPlainTextEdit>();
    turnWheel(*text.viewport());
    EXPECT_GT(text.verticalScrollBar()->value(), 0);
    EXPECT_EQ(scrolled(), 0);
}

TEST_F(ChoicesAreaTest, TheChoicesKeepOffTheirScrollBarWithoutMovingThePage)
{
    const int width = area_.sizeHint().width();
    EXPECT_EQ(area_.widget()->layout()->contentsMargins().right(), 6);
    area_.resize(300, 2000);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !area_.verticalScrollBar()->isVisible(); }));
    EXPECT_EQ(area_.widget()->layout()->contentsMargins().right(), 0);
    EXPECT_EQ(area_.sizeHint().width(), width);
}

} // namespace
} // namespace zolt::test
