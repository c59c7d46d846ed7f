#include "ui/WindowFixture.h"
#include "ui/pages/OutlookLine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;

class DecodePageTest : public WindowTest
{
protected:
    QString outlook() { return widget<OutlookLine>("outlook").text(); }
    bool outlookBecomes(const QString& text)
    {
        return runUntil([&] { return outlook() == text; });
    }
    void click(const char* name)
    {
        auto& button = widget<QAbstractButton>(name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
        runPosted();
    }
};

TEST_F(DecodePageTest, ClicksReachTheControlsOfTheTab)
{
    click("outputFormatMatrix_1");
    EXPECT_EQ(tab().outputFormat(), u"AIFF"_s);
    EXPECT_TRUE(widget<QRadioButton>("outputFormatMatrix_1").isChecked());
    click("deleteOriginalsButton");
    EXPECT_TRUE(tab().deleteOriginalsButton->state());
    click("sourceDecodeButton");
    EXPECT_FALSE(tab().sourceDecodeButton->state());
}

TEST_F(DecodePageTest, ChangesOfTheTabReachTheWidgets)
{
    tab().outputFormatMatrix->selectTitle(u"AIFF"_s);
    tab().deleteOriginalsButton->setState(true);
    tab().sourceDecodeButton->setEnabled(false);
    runPosted();
    EXPECT_TRUE(widget<QRadioButton>("outputFormatMatrix_1").isChecked());
    EXPECT_TRUE(widget<QCheckBox>("deleteOriginalsButton").isChecked());
    EXPECT_FALSE(widget<QCheckBox>("sourceDecodeButton").isEnabled());
}

TEST_F(DecodePageTest, CellTitlesAreThoseOfTheMatrix)
{
    EXPECT_EQ(widget<QRadioButton>("outputFormatMatrix_0").text().remove(u'&'),
              tab().outputFormatMatrix->cellAt(0, 0).title);
    EXPECT_EQ(widget<QRadioButton>("outputFormatMatrix_1").text().remove(u'&'),
              tab().outputFormatMatrix->cellAt(1, 0).title);
}

TEST_F(DecodePageTest, FlacOptionsComeWithAFlacFileAndNothingMoves)
{
    auto& option = widget<QCheckBox>("decodeFlacThroughErrors");
    EXPECT_FALSE(option.isVisible());
    const auto places = [this] {
        QList<QPoint> all;
        for (const QWidget* each : window().findChildren<QAbstractButton*>())
            all += each->mapTo(&window(), QPoint());
        return all;
    };
    const auto before = places();
    add({file(u"a.flac"_s)});
    QCoreApplication::processEvents();
    EXPECT_TRUE(option.isVisible());
    EXPECT_EQ(places(), before);
}

TEST_F(DecodePageTest, AQuietLineSaysWhatWillHappen)
{
    tool(u"flac"_s, "exit 0\n");
    add({file(u"a.flac"_s), file(u"b.flac"_s)});
    EXPECT_TRUE(outlookBecomes(u"2 FLAC files to WAV beside their sources"_s)) << outlook().toStdString();
    click("deleteOriginalsButton");
    EXPECT_TRUE(outlookBecomes(u"2 FLAC files to WAV beside their sources, and delete the 2 originals for good"_s));
}

TEST_F(DecodePageTest, WhatBecomesOfOriginalsIsChosenBesideTheirDeletion)
{
    auto& choice = widget<QComboBox>("deletionChoice");
    EXPECT_FALSE(choice.isEnabled());
    EXPECT_EQ(choice.toolTip(), u"Originals are kept"_s);
    click("deleteOriginalsButton");
    EXPECT_TRUE(choice.isEnabled());
    EXPECT_EQ(choice.currentText(), u"for good"_s);
    choice.setFocus();
    QTest::keyClick(&choice, Qt::Key_Down);
    EXPECT_EQ(UserDefaults::standard().integerForKey(u"trashOrDelete"_s), 1);
    for (const char* const other : {"encode", "lossy", "fix SBE"}) {
        controller().tabView->selectTabViewItemWithLabel(QString::fromLatin1(other));
        runPosted();
        EXPECT_EQ(widget<QComboBox>("deletionChoice").currentText(), u"to the trash"_s) << other;
    }
    click("deleteOriginalsButton");
    EXPECT_TRUE(widget<QComboBox>("deletionChoice").isEnabled()) << "on its own page";
}

TEST_F(DecodePageTest, ProblemsAreToldBeforeTheStart)
{
    tool(u"flac"_s, "exit 0\n");
    file(u"a.wav"_s);
    add({file(u"a.flac"_s)});
    EXPECT_TRUE(outlookBecomes(u"1 FLAC file to WAV beside its source\n"
                               "a.wav exists already and will not be overwritten"_s))
        << outlook().toStdString();
}

TEST_F(DecodePageTest, CtrlReturnPressesTheCommand)
{
    tool(u"flac"_s, "exit 0\n");
    add({file(u"a.flac"_s)});
    QTest::keyClick(&window(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(tab().fileNames().isEmpty());
    settle();
}

TEST_F(DecodePageTest, AMissingToolIsToldAndNothingIsQueued)
{
    add({file(u"a.flac"_s)});
    panels_.answerAlert(alertReply::defaultButton);
    click("commandButton");
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab().fileNames().count(), 1);
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_THAT(panels_.alerts()[0].message.toStdString(), HasSubstr("\"flac\""));
}

TEST_F(DecodePageTest, FilesThatNothingDecodesAreSkippedAndGoWithTheList)
{
    tool(u"flac"_s, "exit 0\n");
    add({file(u"a.flac"_s), file(u"notes"_s)});
    tab().addFile(pathOf(u"b.xyz"_s)); // past the checks, as files from outside may come
    runPosted();
    click("commandButton");
    EXPECT_EQ(queue().taskArray().size(), 1U);
    EXPECT_TRUE(tab().fileNames().isEmpty());
    settle();
    add({pathOf(u"notes"_s)});
    click("commandButton");
    EXPECT_TRUE(tab().fileNames().isEmpty()) << "also where it holds nothing else";
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(DecodePageTest, ARefusedConfirmationLeavesEverything)
{
    tool(u"flac"_s, "exit 0\n");
    add({file(u"a.flac"_s), file(u"notes"_s)});
    click("deleteOriginalsButton");
    panels_.answerAlert(alertReply::alternateButton);
    click("commandButton");
    EXPECT_EQ(tab().fileNames().count(), 2);
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(DecodePageTest, TheCommandWaitsForFiles)
{
    EXPECT_FALSE(widget<QPushButton>("commandButton").isEnabled());
    add({file(u"a.flac"_s)});
    EXPECT_TRUE(widget<QPushButton>("commandButton").isEnabled());
}

TEST_F(DecodePageTest, EveryControlCanBeReachedAndNamed)
{
    add({file(u"a.flac"_s)});
    for (const QAbstractButton* button : window().page()->findChildren<QAbstractButton*>()) {
        if (qobject_cast<const QLineEdit*>(button->parentWidget())) continue; // what clears a field
        EXPECT_NE(button->focusPolicy(), Qt::NoFocus) << button->objectName().toStdString();
        EXPECT_TRUE(button->text().contains(u'&')) << button->objectName().toStdString();
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
}

} // namespace
} // namespace zolt::test
