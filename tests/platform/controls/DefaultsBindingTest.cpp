#include "platform/controls/DefaultsBinding.h"

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"
#include "platform/controls/TextField.h"
#include "support/test.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class DefaultsBinding : public testing::Test
{
protected:
    /// What a program that starts now would find saved.
    QVariant saved() const { return UserDefaults(path_).objectForKey(key_).value_or(QVariant()); }

    const QString key_ = u"key"_s;
    QTemporaryDir directory_;
    QString path_ = directory_.filePath(u"settings.ini"_s);
    UserDefaults defaults_{path_};
};

} // namespace

TEST_F(DefaultsBinding, AMatrixShowsTheSavedIndexAndSavesEachClick)
{
    defaults_.registerDefaults({{key_, 2}});
    const auto matrix = std::make_shared<Matrix>(2, 2, QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    bindToDefault(*matrix, key_, defaults_);
    EXPECT_EQ(matrix->selectedRow(), 1);
    EXPECT_EQ(matrix->selectedColumn(), 0);
    matrix->clickCell(0, 1);
    EXPECT_EQ(saved().toInt(), 1);
}

TEST_F(DefaultsBinding, AnIndexThatNoCellHasLeavesTheSelection)
{
    defaults_.set(key_, 9);
    const auto matrix = std::make_shared<Matrix>(1, 2, QStringList{u"a"_s, u"b"_s});
    bindToDefault(*matrix, key_, defaults_);
    EXPECT_EQ(matrix->selectedIndex(), 0);
}

TEST_F(DefaultsBinding, ASliderShowsTheSavedNumberAndSavesEachMove)
{
    defaults_.set(key_, 5);
    const auto slider = std::make_shared<Slider>(0, 8, 0);
    bindToDefault(*slider, key_, defaults_);
    EXPECT_EQ(slider->intValue(), 5);
    slider->moveTo(7);
    EXPECT_EQ(saved().toInt(), 7);
}

TEST_F(DefaultsBinding, AStepperSavesBeforeItActs)
{
    defaults_.registerDefaults({{key_, 2}});
    const auto stepper = std::make_shared<Stepper>(1, 32, 1);
    bindToDefault(*stepper, key_, defaults_);
    int savedAtAction = 0;
    stepper->setAction([&] { savedAtAction = saved().toInt(); });
    EXPECT_EQ(stepper->intValue(), 2);
    stepper->stepUp();
    EXPECT_EQ(savedAtAction, 3);
}

TEST_F(DefaultsBinding, ACheckBoxShowsAndSavesWhetherItIsOn)
{
    defaults_.registerDefaults({{key_, 1}});
    const auto box = std::make_shared<CheckBox>();
    bindToDefault(*box, key_, defaults_);
    EXPECT_TRUE(box->state());
    box->click();
    EXPECT_FALSE(UserDefaults(path_).boolForKey(key_));
    EXPECT_TRUE(saved().isValid());
}

TEST_F(DefaultsBinding, AComboBoxShowsAndSavesItsText)
{
    defaults_.registerDefaults({{key_, 160}});
    const auto box = std::make_shared<ComboBox>(QStringList{u"128"_s, u"160"_s});
    bindToDefault(*box, key_, defaults_);
    EXPECT_EQ(box->intValue(), 160);
    box->enterText(u"192"_s);
    EXPECT_EQ(saved().toInt(), 192);
}

TEST_F(DefaultsBinding, ATextFieldSavesEachKeystroke)
{
    defaults_.registerDefaults({{key_, u"%name"_s}});
    const auto field = std::make_shared<TextField>();
    bindToDefault(*field, key_, defaults_);
    EXPECT_EQ(field->stringValue(), u"%name"_s);
    for (const QString& text : {u"%"_s, u"%t"_s, QString()}) {
        field->setStringValue(text);
        field->performAction();
        EXPECT_EQ(saved().toString(), text);
    }
}

TEST_F(DefaultsBinding, WhatTheProgramSetsIsNotSaved)
{
    const auto slider = std::make_shared<Slider>(0, 8, 0);
    bindToDefault(*slider, key_, defaults_);
    slider->setIntValue(3);
    EXPECT_FALSE(saved().isValid());
}
