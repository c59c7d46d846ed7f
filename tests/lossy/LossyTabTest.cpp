#include "LossyFixture.h"

#include "platform/errors/Exceptions.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class Tab : public LossyTest
{
protected:
    /// Which of the six that depend on a choice are enabled.
    QString enabled() const
    {
        const std::pair<const Control*, QString> controls[] = {
            {tab.mp3Matrix.get(), u"mp3"_s},   {tab.aacMatrix.get(), u"aac"_s},
            {tab.comboBox.get(), u"combo"_s},  {tab.slider.get(), u"slider"_s},
            {tab.stepper.get(), u"stepper"_s}, {tab.stepperTextField.get(), u"field"_s}};
        QStringList names;
        for (const auto& [control, name] : controls)
            if (control->isEnabled()) names += name;
        return names.join(u' ');
    }
    void type(const QString& text) { tab.stepperTextField->enterText(text); }
    QString shown() const { return tab.stepperTextField->stringValue(); }
};

/// A tab whose setter fails, as settings that cannot be written might have it.
class FailingTab : public LossyTab
{
public:
    void setStepperLevel(int32_t level) override
    {
        if (level == 99) throw PlatformException(u"Exception"_s, u"no"_s);
        if (level == 98) throw std::runtime_error("other");
        LossyTab::setStepperLevel(level);
    }
};

} // namespace

TEST_F(Tab, StartsWithTheLevelsOfTheSettings)
{
    EXPECT_EQ(tab.sliderLevel(), 3);
    EXPECT_EQ(tab.stepperLevel(), 88);
    EXPECT_EQ(tab.comboLevel(), 160);
    EXPECT_EQ(tab.slider->intValue(), 3);
    EXPECT_EQ(tab.stepper->intValue(), 88);
    EXPECT_EQ(tab.comboBox->stringValue(), u"160"_s);
    EXPECT_EQ(shown(), u"88"_s);
    UserDefaults::standard().set(u"lossySliderLevel"_s, 7);
    UserDefaults::standard().set(u"lossyComboLevel"_s, 224);
    UserDefaults::standard().set(u"lossyStepperLevel"_s, 12);
    tab.awakeFromNib();
    EXPECT_EQ(tab.sliderLevel(), 7);
    EXPECT_EQ(tab.comboLevel(), 224);
    EXPECT_EQ(tab.stepperLevel(), 12);
    EXPECT_EQ(shown(), u"12"_s);
}

TEST_F(Tab, OffersRatesAndTakesATypedOne)
{
    EXPECT_EQ(tab.comboBox->items(),
              (QStringList{u"64"_s, u"96"_s, u"112"_s, u"128"_s, u"160"_s, u"192"_s, u"224"_s, u"256"_s, u"320"_s}));
    tab.comboBox->enterText(u"144"_s);
    EXPECT_EQ(tab.comboLevel(), 144);
    EXPECT_EQ(tab.slider->minValue(), 0);
    EXPECT_EQ(tab.slider->maxValue(), 9);
    EXPECT_EQ(tab.stepper->minValue(), 0);
    EXPECT_EQ(tab.stepper->maxValue(), 127);
}

TEST_F(Tab, LevelsAndControlsAreKeptEqualBothWays)
{
    choose(lossyTitle::MP3, lossyTitle::VBR);
    tab.slider->moveTo(5);
    EXPECT_EQ(tab.sliderLevel(), 5);
    tab.setSliderLevel(2);
    EXPECT_EQ(tab.slider->intValue(), 2);
    tab.setComboLevel(192);
    EXPECT_EQ(tab.comboBox->stringValue(), u"192"_s);
    choose(lossyTitle::AAC, lossyTitle::VBR);
    tab.stepper->stepUp();
    EXPECT_EQ(tab.stepperLevel(), 89);
    EXPECT_EQ(shown(), u"89"_s);
    tab.setStepperLevel(10);
    EXPECT_EQ(tab.stepper->intValue(), 10);
}

TEST_F(Tab, WhatAppliesIsEnabled)
{
    choose(lossyTitle::MP3, lossyTitle::CBR);
    EXPECT_EQ(enabled(), u"mp3 combo"_s);
    choose(lossyTitle::MP3, lossyTitle::VBR);
    EXPECT_EQ(enabled(), u"mp3 slider"_s);
    choose(lossyTitle::AAC, lossyTitle::VBR);
    EXPECT_EQ(enabled(), u"aac stepper field"_s);
    for (const QString& mode : {lossyTitle::CBR, lossyTitle::ABR, lossyTitle::VBR_CONSTRAINED}) {
        choose(lossyTitle::AAC, mode);
        EXPECT_EQ(enabled(), u"aac combo"_s);
    }
}

TEST_F(Tab, AClickOnAChoiceShowsWhatApplies)
{
    tab.displayRelevantOptions();
    tab.mp3Matrix->clickCell(0, 1);
    EXPECT_EQ(enabled(), u"mp3 slider"_s);
    tab.outputFormatMatrix->clickCell(1, 0);
    EXPECT_EQ(enabled(), u"aac combo"_s);
    tab.aacMatrix->clickCell(1, 1);
    EXPECT_EQ(enabled(), u"aac stepper field"_s);
}

TEST_F(Tab, SliderAndComboBoxAreSavedWithTheNextChoiceAlone)
{
    choose(lossyTitle::MP3, lossyTitle::CBR);
    tab.comboBox->enterText(u"320"_s);
    tab.setSliderLevel(9);
    EXPECT_EQ(stored("lossyComboLevel"), 160);
    EXPECT_EQ(stored("lossySliderLevel"), 3);
    tab.displayRelevantOptions();
    EXPECT_EQ(stored("lossyComboLevel"), 320);
    EXPECT_EQ(stored("lossySliderLevel"), 9);
}

TEST_F(Tab, TheStepperIsSavedAtEachChange)
{
    choose(lossyTitle::AAC, lossyTitle::VBR);
    tab.stepper->stepDown();
    EXPECT_EQ(stored("lossyStepperLevel"), 87);
    type(u"64"_s);
    EXPECT_EQ(stored("lossyStepperLevel"), 64);
}

TEST_F(Tab, EntriesFromZeroTo127AreTaken)
{
    choose(lossyTitle::AAC, lossyTitle::VBR);
    for (const QString& entry : {u"127"_s, u"0"_s, u"5"_s}) {
        type(entry);
        EXPECT_EQ(tab.stepperLevel(), entry.toInt());
        EXPECT_EQ(tab.stepper->intValue(), entry.toInt());
        EXPECT_EQ(shown(), entry);
    }
}

TEST_F(Tab, OtherEntriesArePutBackAtOnce)
{
    choose(lossyTitle::AAC, lossyTitle::VBR);
    for (const QString& entry : {u"128"_s, u"-1"_s, u"-100"_s, u"4000"_s}) {
        type(entry);
        EXPECT_EQ(tab.stepperLevel(), 88);
        EXPECT_EQ(tab.stepper->intValue(), 88);
        EXPECT_EQ(shown(), u"88"_s) << entry.toStdString();
        EXPECT_EQ(stored("lossyStepperLevel"), 88);
    }
}

TEST_F(Tab, AnEntryThatCannotBeSetIsLoggedAndPutBack)
{
    FailingTab failing;
    failing.awakeFromNib();
    const LogCapture log;
    failing.stepperTextField->enterText(u"99"_s);
    EXPECT_EQ(failing.stepperTextField->stringValue(), u"88"_s);
    EXPECT_EQ(log.count(u"ex no"_s), 1) << log.lines().join(u'\n').toStdString();
    failing.stepperTextField->enterText(u"98"_s);
    EXPECT_EQ(failing.stepperTextField->stringValue(), u"88"_s) << "whatever it was";
    EXPECT_EQ(log.count(u"ex other"_s), 1);
}

TEST_F(Tab, EachWayTakesItsOwnLevel)
{
    tab.setSliderLevel(2);
    tab.setStepperLevel(99);
    tab.setComboLevel(192);
    const auto levelOf = [this](const QString& format, const QString& mode) {
        choose(format, mode);
        EXPECT_EQ(tab.choice().mode, mode);
        EXPECT_EQ(tab.choice().mp3, format == lossyTitle::MP3);
        return tab.choice().level;
    };
    EXPECT_EQ(levelOf(lossyTitle::MP3, lossyTitle::CBR), 192);
    EXPECT_EQ(levelOf(lossyTitle::MP3, lossyTitle::VBR), 2);
    EXPECT_EQ(levelOf(lossyTitle::AAC, lossyTitle::CBR), 192);
    EXPECT_EQ(levelOf(lossyTitle::AAC, lossyTitle::ABR), 192);
    EXPECT_EQ(levelOf(lossyTitle::AAC, lossyTitle::VBR_CONSTRAINED), 192);
    EXPECT_EQ(levelOf(lossyTitle::AAC, lossyTitle::VBR), 99);
}

TEST_F(Tab, EachFileBecomesATaskOfTheFormat)
{
    holdQueue();
    const QStringList files{file(u"one/a.wav"_s), file(u"two/b.flac"_s)};
    tab.setComboLevel(256);
    choose(lossyTitle::MP3, lossyTitle::CBR);
    tab.addFiles(files);
    tab.executeCommand(nullptr);
    const auto mp3s = queued<EncodeMP3Task>();
    ASSERT_EQ(mp3s.size(), 2u);
    ASSERT_TRUE(mp3s[0] && mp3s[1]);
    EXPECT_EQ(mp3s[0]->title(), u"a.wav"_s);
    EXPECT_EQ(mp3s[0]->arguments(files[0]),
              (QStringList{u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-o"_s,
                           u"cust ext=mp3 lame -b 256 - %f"_s, u"-d"_s, pathOf(u"one"_s), files[0]}));
    EXPECT_FALSE(mp3s[0]->deleteOriginal());
    EXPECT_TRUE(tab.fileNames().isEmpty());
    choose(lossyTitle::AAC, lossyTitle::VBR);
    tab.addFiles(files);
    tab.executeCommand(nullptr);
    const auto aacs = queued<EncodeAACTask>();
    ASSERT_EQ(aacs.size(), 4u);
    ASSERT_TRUE(aacs[3]);
    EXPECT_EQ(aacs[3]->outFile(), pathOf(u"two/b.m4a"_s));
    EXPECT_EQ(aacs[3]->getEncoderSettingsForTag(), u"True VBR Quality 88"_s);
}

TEST_F(Tab, OneFolderServesAllFilesIfAskedFor)
{
    holdQueue();
    tab.addFiles({file(u"one/a.wav"_s)});
    tab.sourceEncodeButton->setState(false);
    tab.setDestination(pathOf(u"out"_s));
    choose(lossyTitle::AAC, lossyTitle::CBR);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queued<EncodeAACTask>().at(0)->outFile(), pathOf(u"out/a.m4a"_s));
}

TEST_F(Tab, TheFormatIsThatOfThePressAndModeAndLevelThoseOfTheQueueing)
{
    struct ClickingPanels : ScriptedPanels
    {
        std::function<void()> click;
        int runAlert(const QString& title, const QString& message, const QString& yes, const QString& no,
                     const QString& other) override
        {
            click();
            return ScriptedPanels::runAlert(title, message, yes, no, other);
        }
    } clicking;
    holdQueue();
    choose(lossyTitle::MP3, lossyTitle::CBR);
    tab.addFiles({file(u"a.wav"_s)});
    tab.deleteOriginalsButton->setState(true);
    clicking.click = [this] {
        choose(lossyTitle::MP3, lossyTitle::VBR);
        choose(lossyTitle::AAC, lossyTitle::VBR);
        tab.setSliderLevel(7);
    };
    clicking.answerAlert(1);
    tab.executeCommand(nullptr);
    const auto task = queued<EncodeMP3Task>().at(0);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->arguments(u"a.wav"_s).at(6), u"cust ext=mp3 lame -V 7 - %f"_s);
}

TEST_F(Tab, WithoutAFolderNothingHappens)
{
    tab.addFiles({file(u"a.wav"_s)});
    tab.sourceEncodeButton->setState(false);
    panels_.answerOpenPanel(std::nullopt);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().copy().size(), 1);
}

TEST_F(Tab, ARefusedDeletionKeepsTheListAndAsksForNoFolder)
{
    tab.addFiles({file(u"a.wav"_s)});
    tab.sourceEncodeButton->setState(false);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(0);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().copy().size(), 1);
    EXPECT_TRUE(panels_.openRequests().empty());
    EXPECT_EQ(panels_.alerts().at(0).title,
              u"You have chosen to delete the original files.  Are you sure you want to continue?"_s);
    EXPECT_EQ(panels_.alerts().at(0).buttons, (QStringList{u"Yes"_s, u"No"_s}));
}

TEST_F(Tab, AConfirmedDeletionIsTheTasksToDo)
{
    holdQueue();
    tab.addFiles({file(u"a.wav"_s)});
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    tab.executeCommand(nullptr);
    EXPECT_TRUE(queued<EncodeMP3Task>().at(0)->deleteOriginal());
}

TEST_F(Tab, AnEmptyListDoesNothing)
{
    tab.deleteOriginalsButton->setState(true);
    tab.executeCommand(nullptr); // no question
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(Tab, EveryControlIsAnOutletOfItsName)
{
    QStringList names;
    for (const auto& outlet : tab.outlets())
        names += outlet.name;
    EXPECT_THAT(names,
                ElementsAre(u"outputFormatMatrix"_s, u"mp3Matrix"_s, u"aacMatrix"_s, u"slider"_s, u"stepper"_s,
                            u"stepperTextField"_s, u"comboBox"_s, u"sourceEncodeButton"_s, u"deleteOriginalsButton"_s));
}
