#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/ImageView.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"

#include "platform/images/Image.h"
#include "support/EventLoop.h"
#include "support/test.h"

#include <QImage>

#include <thread>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

/// Counts what a view would be told.
class CountingObserver : public ControlObserver
{
public:
    void controlChanged(Control&) override { ++changes; }
    int changes = 0;
};

} // namespace

TEST(CheckBox, AClickTurnsItOverAndActsAfterwards)
{
    const auto box = std::make_shared<CheckBox>(u"delete"_s);
    std::vector<bool> seen;
    box->setAction([&] { seen.push_back(box->state()); });
    EXPECT_EQ(box->title(), u"delete"_s);
    EXPECT_FALSE(box->state());
    box->click();
    box->click();
    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
}

TEST(CheckBox, WhatTheProgramSetsIsNoClick)
{
    const auto box = std::make_shared<CheckBox>();
    int actions = 0;
    box->setAction([&] { ++actions; });
    box->setState(true);
    EXPECT_TRUE(box->state());
    EXPECT_EQ(actions, 0);
}

TEST(CheckBox, ADisabledBoxKeepsItsState)
{
    const auto box = std::make_shared<CheckBox>();
    box->setState(true);
    box->setEnabled(false);
    box->click();
    EXPECT_TRUE(box->state());
}

TEST(CheckBox, WritesOfATaskThreadReachTheViewOnceAndTheReaderAtOnce)
{
    const auto box = std::make_shared<CheckBox>();
    CountingObserver observer;
    box->setObserver(&observer);
    std::thread([&] {
        for (int turn = 0; turn < 101; ++turn)
            box->setState(turn % 2 == 0);
        EXPECT_TRUE(box->state());
    }).join();
    EXPECT_EQ(observer.changes, 0);
    test::runPosted();
    EXPECT_EQ(observer.changes, 1);
    box->setObserver(nullptr);
}

TEST(Slider, ItsTextHasNoDecimalsWhenItIsWhole)
{
    Slider slider(1000, 5000, 2000, 1000);
    EXPECT_EQ(slider.stringValue(), u"2000"_s);
    slider.setDoubleValue(2000.5);
    EXPECT_EQ(slider.stringValue(), u"2000.5"_s);
    EXPECT_EQ(slider.intValue(), 2000);
    EXPECT_EQ(Slider(0, 1e9, 1e9).stringValue(), u"1000000000"_s);
    EXPECT_EQ(Slider(-3, 3, -2).stringValue(), u"-2"_s);
}

TEST(Slider, ItsValueStaysBetweenItsEnds)
{
    Slider slider(0, 8, 9);
    EXPECT_EQ(slider.intValue(), 8);
    slider.setIntValue(-1);
    EXPECT_EQ(slider.intValue(), 0);
    slider.setIntValue(5);
    EXPECT_EQ(slider.intValue(), 5);
}

TEST(Slider, AMoveSnapsToTheNearestStepAndActs)
{
    const auto slider = std::make_shared<Slider>(1000, 5000, 2000, 1000);
    int actions = 0;
    slider->setAction([&] { ++actions; });
    slider->moveTo(3600);
    EXPECT_EQ(slider->stringValue(), u"4000"_s);
    slider->moveTo(9999);
    EXPECT_EQ(slider->intValue(), 5000);
    EXPECT_EQ(actions, 2);
    slider->setEnabled(false);
    slider->moveTo(1000);
    EXPECT_EQ(slider->intValue(), 5000);
    EXPECT_EQ(actions, 2);
}

TEST(Stepper, StepsByItsIncrementAndStaysAtItsEnds)
{
    const auto stepper = std::make_shared<Stepper>(0, 127, 125, 2);
    int actions = 0;
    stepper->setAction([&] { ++actions; });
    stepper->stepUp();
    EXPECT_EQ(stepper->intValue(), 127);
    stepper->stepUp();
    EXPECT_EQ(stepper->intValue(), 127);
    stepper->stepDown();
    EXPECT_EQ(stepper->intValue(), 125);
    EXPECT_EQ(actions, 3);
    stepper->setIntValue(200);
    EXPECT_EQ(stepper->intValue(), 127);
    EXPECT_EQ(actions, 3);
}

TEST(Stepper, AWrappingOneComesOutAtTheOtherEnd)
{
    const auto stepper = std::make_shared<Stepper>(1, 3, 3, 1, true);
    stepper->stepUp();
    EXPECT_EQ(stepper->intValue(), 1);
    stepper->stepDown();
    EXPECT_EQ(stepper->intValue(), 3);
}

TEST(Stepper, ADisabledOneKeepsItsValue)
{
    const auto stepper = std::make_shared<Stepper>(0, 9, 5);
    stepper->setEnabled(false);
    stepper->stepUp();
    EXPECT_EQ(stepper->intValue(), 5);
}

TEST(ComboBox, ItsNumberIsReadFromTheStartOfItsText)
{
    ComboBox box({u"128"_s, u"160"_s, u"320"_s}, u"160"_s);
    EXPECT_EQ(box.intValue(), 160);
    EXPECT_EQ(box.selectedIndex(), 1);
    box.setStringValue(u" 192 kbps"_s);
    EXPECT_EQ(box.intValue(), 192);
    EXPECT_EQ(box.selectedIndex(), -1);
    box.setStringValue(u"fast"_s);
    EXPECT_EQ(box.intValue(), 0);
    box.setIntValue(320);
    EXPECT_EQ(box.selectedIndex(), 2);
}

TEST(ComboBox, SelectingAnItemMakesItTheText)
{
    ComboBox box({u"128"_s, u"160"_s});
    box.selectIndex(1);
    EXPECT_EQ(box.stringValue(), u"160"_s);
    box.selectIndex(2);
    box.selectIndex(-1);
    EXPECT_EQ(box.stringValue(), u"160"_s);
    box.setItems({u"64"_s});
    EXPECT_EQ(box.items(), QStringList{u"64"_s});
    EXPECT_EQ(box.stringValue(), u"160"_s);
}

TEST(ComboBox, EnteringTextActsUnlessItIsDisabled)
{
    const auto box = std::make_shared<ComboBox>();
    QString seen;
    box->setAction([&] { seen = box->stringValue(); });
    box->enterText(u"96"_s);
    EXPECT_EQ(seen, u"96"_s);
    box->setEnabled(false);
    box->enterText(u"64"_s);
    EXPECT_EQ(box->stringValue(), u"96"_s);
}

TEST(ImageView, HoldsAPictureOrNone)
{
    ImageView view;
    EXPECT_FALSE(view.image());
    QImage pixels(2, 3, QImage::Format_RGB32);
    pixels.fill(Qt::red);
    view.setImage(Image::fromPixels(pixels));
    ASSERT_TRUE(view.image());
    EXPECT_EQ(view.image()->drawn().height(), 3);
    view.setImage(nullptr);
    EXPECT_FALSE(view.image());
}
