#include "shell/PreferencesController.h"

#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Interfaces.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"
#include "shell/DefaultSettings.h"
#include "support/LogCapture.h"
#include "support/OrdinaryRights.h"

#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using C = Constants;

/// A window 400 units wide whose top edge is at 900, with a toolbar of 50 units.
class Preferences : public testing::Test
{
protected:
    Preferences()
    {
        settings_.reopen(path_);
        registerDefaultSettings();
        NotificationCenter::standard().addObserver(this, C::ZOLTMaxThreadsChangedNotification, nullptr,
                                                   [this](const Notification& posted) {
                                                       posted_.push_back(posted.object);
                                                       savedMeanwhile_ = savedThreads();
                                                   });
    }
    ~Preferences() override
    {
        NotificationCenter::standard().removeObserver(this, C::ZOLTMaxThreadsChangedNotification, nullptr);
    }
    /// The program's start, as far as this window goes.
    PreferencesController& start()
    {
        preferences_ = std::make_unique<PreferencesController>();
        preferences_->initToolbar();
        return *preferences_;
    }
    int savedThreads() const { return UserDefaults(path_).integerForKey(u"maxThreads"_s); }
    QString saved(const QString& key) const { return UserDefaults(path_).stringForKey(key); }
    Pane& pane(int index) { return *preferences_->preferencesTab()->items()[std::size_t(index)]->view(); }
    void place(double height)
    {
        preferences_->window()->setFrame({100, 900 - height, 400, height});
        preferences_->window()->toolbar()->setHeight(50);
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath(u"settings.ini"_s);
    UserDefaults& settings_ = UserDefaults::standard();
    std::vector<std::any> posted_;
    int savedMeanwhile_ = 0;
    std::unique_ptr<PreferencesController> preferences_;
};

} // namespace

TEST_F(Preferences, ControlsShowTheDefaultsAtAFirstStartAndNothingIsSaved)
{
    const PreferencesController& preferences = start();
    EXPECT_EQ(preferences.maxThreadsStepper->intValue(), 2);
    EXPECT_EQ(preferences.maxThreadsStepperText->stringValue(), u"2"_s);
    EXPECT_EQ(preferences.shnlenTrackListingFormat->stringValue(), u"%number. %name %time"_s);
    EXPECT_EQ(preferences.currentFormat->stringValue(), u"01. FileName 01:00:00\n"_s);
    EXPECT_EQ(preferences.trashOrDelete->selectedIndex(), 0);
    EXPECT_EQ(preferences.settingsNote->stringValue(), QString());
    EXPECT_FALSE(QFile::exists(path_));
    EXPECT_TRUE(posted_.empty());
}

TEST_F(Preferences, AStepIsSavedAndThenPostedOnceAsANumber)
{
    PreferencesController& preferences = start();
    preferences.maxThreadsStepper->stepUp();
    ASSERT_EQ(posted_.size(), 1U);
    ASSERT_NE(std::any_cast<int>(&posted_[0]), nullptr);
    EXPECT_EQ(std::any_cast<int>(posted_[0]), 3);
    EXPECT_EQ(savedMeanwhile_, 3);
    EXPECT_EQ(preferences.maxThreadsStepperText->stringValue(), u"3"_s);
}

TEST_F(Preferences, TheStepperGoesFromOneToTheProcessorsAndToEightAtLeast)
{
    const Stepper& stepper = *start().maxThreadsStepper;
    EXPECT_EQ(stepper.minValue(), 1);
    EXPECT_EQ(stepper.maxValue(), PreferencesController::mostThreads());
    EXPECT_GE(PreferencesController::mostThreads(), 8);
    EXPECT_GE(PreferencesController::mostThreads(), int(std::thread::hardware_concurrency()));
}

TEST_F(Preferences, AHigherLimitCountsFromTheNextStartOnAndALowerOneStopsNothing)
{
    PreferencesController& preferences = start();
    const auto queue = ZOLTTaskQueue::initWithController(nullptr);
    std::vector<std::shared_ptr<ZOLTTask>> tasks;
    for (int number = 0; number < 5; ++number) {
        tasks.push_back(ZOLTTask::initWithQueue(queue.get()));
        tasks.back()->setResults(nullptr);
        queue->addTask(tasks.back());
    }
    const auto active = [&] {
        return std::count_if(tasks.begin(), tasks.end(), [](auto& each) { return each->isActive(); });
    };
    ASSERT_EQ(active(), 2);
    preferences.maxThreadsStepper->stepUp();
    EXPECT_EQ(active(), 2) << "nothing starts by itself";
    tasks[0]->stopTask(nullptr);
    queue->taskCompleted(tasks[0]);
    EXPECT_EQ(active(), 3);
    preferences.maxThreadsStepper->stepDown();
    preferences.maxThreadsStepper->stepDown();
    EXPECT_EQ(active(), 3) << "what runs goes on";
    EXPECT_EQ(queue->maxThreads(), 1);
    for (const auto& task : tasks)
        task->stopTask(nullptr);
}

TEST_F(Preferences, ALimitSetElsewhereIsShownAndNotPostedAgain)
{
    const PreferencesController& preferences = start();
    NotificationCenter::standard().post({C::ZOLTMaxThreadsChangedNotification, nullptr, 6});
    EXPECT_EQ(preferences.maxThreadsStepper->intValue(), 6);
    EXPECT_EQ(preferences.maxThreadsStepperText->stringValue(), u"6"_s);
    EXPECT_EQ(posted_.size(), 1U);
    preferences.maxThreadsStepper->stepUp();
    EXPECT_EQ(std::any_cast<int>(posted_.back()), 7);
}

TEST_F(Preferences, ASavedLimitAboveTheStepperStays)
{
    settings_.set(u"maxThreads"_s, 1000);
    start();
    EXPECT_EQ(savedThreads(), 1000);
    EXPECT_TRUE(posted_.empty());
}

TEST_F(Preferences, ASavedLimitThatWouldStartNothingIsOneForThisRun)
{
    settings_.set(u"maxThreads"_s, u"auto"_s);
    start();
    ASSERT_EQ(posted_.size(), 1U);
    EXPECT_EQ(std::any_cast<int>(posted_[0]), 1);
    EXPECT_EQ(saved(u"maxThreads"_s), u"auto"_s);
}

TEST_F(Preferences, ThePreviewFollowsTheFormatAtEachKeystroke)
{
    const PreferencesController& preferences = start();
    QString typed;
    for (const QChar key : u"%time/%n"_s) {
        typed += key;
        preferences.shnlenTrackListingFormat->enterText(typed);
        EXPECT_EQ(saved(u"shntoolNamesFormat"_s), typed);
    }
    EXPECT_EQ(preferences.currentFormat->stringValue(), u"01:00:00/%n\n"_s);
    preferences.shnlenTrackListingFormat->enterText(u"%name-%number"_s);
    EXPECT_EQ(preferences.currentFormat->stringValue(), u"FileName-01\n"_s);
}

TEST_F(Preferences, WhatIsTypedElsewhereLeavesThePreview)
{
    PreferencesController& preferences = start();
    settings_.set(u"shntoolNamesFormat"_s, u"%name"_s);
    preferences.controlTextDidChange(*preferences.maxThreadsStepperText);
    EXPECT_EQ(preferences.currentFormat->stringValue(), u"01. FileName 01:00:00\n"_s);
    preferences.controlTextDidChange(*preferences.shnlenTrackListingFormat);
    EXPECT_EQ(preferences.currentFormat->stringValue(), u"FileName\n"_s);
}

TEST_F(Preferences, AnEmptySavedFormatDoesNotKeepTheProgramFromStarting)
{
    for (const QString& format : {u""_s, u"/"_s}) {
        settings_.set(u"shntoolNamesFormat"_s, format);
        const LogCapture log;
        EXPECT_EQ(start().currentFormat->stringValue(), QString());
        EXPECT_EQ(log.count(u"The format of length reports gives no line"_s), 1);
    }
}

TEST_F(Preferences, TheToolbarHasTwoItemsThatStayMarked)
{
    PreferencesController& preferences = start();
    Toolbar& toolbar = *preferences.window()->toolbar();
    const QStringList both{u"General"_s, u"Metadata"_s};
    EXPECT_EQ(toolbar.identifier(), u"PrefsToolbar"_s);
    EXPECT_EQ(toolbar.delegate(), &preferences);
    EXPECT_EQ(toolbar.selectedItemIdentifier(), u"General"_s);
    EXPECT_EQ(preferences.toolbarDefaultItemIdentifiers(toolbar), both);
    EXPECT_EQ(preferences.toolbarAllowedItemIdentifiers(toolbar), both);
    EXPECT_EQ(preferences.toolbarSelectableItemIdentifiers(toolbar), both);
    ASSERT_EQ(toolbar.items().size(), 2U);
    for (int index = 0; index < 2; ++index) {
        const ToolbarItem& item = *toolbar.items()[std::size_t(index)];
        EXPECT_EQ(item.identifier, both[index]);
        EXPECT_EQ(item.label, both[index]);
        EXPECT_EQ(item.image, both[index].toLower());
    }
    toolbar.click(u"Metadata"_s);
    EXPECT_EQ(preferences.preferencesTab()->selectedIndex(), 1);
    EXPECT_EQ(toolbar.selectedItemIdentifier(), u"Metadata"_s);
}

TEST_F(Preferences, OnlyTheGeneralItemFitsTheWindowWhenItIsMade)
{
    PreferencesController& preferences = start();
    Toolbar& toolbar = *preferences.window()->toolbar();
    const auto make = [&](const QString& identifier) {
        return preferences.toolbarItemForItemIdentifierWillBeInsertedIntoToolbar(toolbar, identifier, true);
    };
    place(500);
    EXPECT_TRUE(make(u"Metadata"_s));
    EXPECT_FALSE(make(u"Sound"_s));
    EXPECT_EQ(preferences.window()->frame().height(), 500);
    EXPECT_TRUE(make(u"General"_s));
    EXPECT_EQ(preferences.window()->frame().height(), 50 + 22 + 32);
}

TEST_F(Preferences, AnotherPaneTakesItsHeightAndTheTopEdgeStays)
{
    PreferencesController& preferences = start();
    pane(0).setMeasure([] { return Pane::Frames{{20, 10, 100, 30}, {20, 80, 300, 20}}; }); // 90 high
    pane(1).setMeasure([] { return Pane::Frames{{5, 5, 10, 200}}; });
    place(300);
    preferences.resizePreferencesPane();
    EXPECT_EQ(preferences.window()->frame(), QRectF(100, 900 - 194, 400, 90 + 50 + 22 + 32));
    preferences.window()->toolbar()->click(u"Metadata"_s);
    EXPECT_EQ(preferences.window()->frame(), QRectF(100, 900 - 304, 400, 200 + 50 + 22 + 32));
    EXPECT_TRUE(preferences.window()->animatesFrame());
    preferences.window()->toolbar()->click(u"General"_s);
    EXPECT_EQ(preferences.window()->frame(), QRectF(100, 900 - 194, 400, 194));
}

TEST_F(Preferences, ThePaneIsHiddenWhileTheWindowIsFitted)
{
    PreferencesController& preferences = start();
    std::vector<bool> hidden;
    pane(1).setMeasure([&] {
        hidden.push_back(pane(1).isHidden());
        return Pane::Frames();
    });
    preferences.showPreferencesTab(ToolbarItem{u"Metadata"_s});
    EXPECT_EQ(hidden, std::vector{true});
    EXPECT_FALSE(pane(1).isHidden());
}

TEST_F(Preferences, AToolbarTakesHeightOnlyWhereItIsSeen)
{
    Window window;
    window.setFrame({0, 0, 400, 300});
    EXPECT_EQ(PreferencesController::toolbarHeightForWindow(window), 0.0);
    const auto toolbar = std::make_shared<Toolbar>(u"any"_s);
    toolbar->setHeight(48);
    window.setToolbar(toolbar);
    EXPECT_EQ(PreferencesController::toolbarHeightForWindow(window), 48.0);
    toolbar->setHidden(true);
    EXPECT_EQ(PreferencesController::toolbarHeightForWindow(window), 0.0);
}

TEST_F(Preferences, DeletionIsSavedAndAnyOtherValueIsTheTrash)
{
    start().trashOrDelete->clickCell(1, 0);
    EXPECT_EQ(saved(u"trashOrDelete"_s), u"1"_s);
    settings_.set(u"trashOrDelete"_s, 7);
    EXPECT_EQ(start().trashOrDelete->selectedIndex(), 1);
    EXPECT_EQ(saved(u"trashOrDelete"_s), u"7"_s) << "showing it changes nothing";
}

TEST_F(Preferences, WhatBecomesOfDeletedFilesIsToldWithEachChange)
{
    PreferencesController& preferences = start();
    int told = 0;
    NotificationCenter::standard().addObserver(this, PreferencesController::deletionChanged, nullptr,
                                               [&](const Notification&) { ++told; });
    preferences.trashOrDelete->clickCell(1, 0);
    EXPECT_EQ(told, 1);
    preferences.restoreGeneralButton->click();
    EXPECT_EQ(told, 2);
    NotificationCenter::standard().removeObserver(this, PreferencesController::deletionChanged, nullptr);
}

TEST_F(Preferences, DefaultsAreRestoredPaneByPaneAndSaved)
{
    settings_.set(u"maxThreads"_s, 5);
    settings_.set(u"trashOrDelete"_s, 1);
    settings_.set(u"shntoolNamesFormat"_s, u"%name"_s);
    settings_.set(u"lossyStepperLevel"_s, 3);
    PreferencesController& preferences = start();
    preferences.restoreGeneralButton->click();
    EXPECT_EQ(preferences.maxThreadsStepper->intValue(), 2);
    EXPECT_EQ(std::any_cast<int>(posted_.back()), 2);
    EXPECT_EQ(preferences.trashOrDelete->selectedIndex(), 0);
    EXPECT_EQ(saved(u"shntoolNamesFormat"_s), u"%name"_s);
    preferences.restoreMetadataButton->click();
    EXPECT_EQ(preferences.shnlenTrackListingFormat->stringValue(), u"%number. %name %time"_s);
    EXPECT_EQ(preferences.currentFormat->stringValue(), u"01. FileName 01:00:00\n"_s);
    for (const QString& key : {u"maxThreads"_s, u"trashOrDelete"_s, u"shntoolNamesFormat"_s})
        EXPECT_FALSE(UserDefaults(path_).objectForKey(key)) << key.toStdString();
    EXPECT_EQ(saved(u"lossyStepperLevel"_s), u"3"_s);
}

TEST_F(Preferences, ASettingThatCannotBeSavedIsToldBelowThePanes)
{
    settings_.reopen(folder_.filePath(u"below/settings.ini"_s));
    QFile blocker(folder_.filePath(u"below"_s));
    ASSERT_TRUE(blocker.open(QFile::WriteOnly));
    PreferencesController& preferences = start();
    preferences.trashOrDelete->clickCell(1, 0);
    EXPECT_TRUE(preferences.settingsNote->stringValue().contains(u"could not be saved"_s));
    EXPECT_EQ(settings_.integerForKey(u"trashOrDelete"_s), 1) << "it holds for this run";
    EXPECT_EQ(preferences.settingsNote->toolTip(), preferences.settingsNote->stringValue());
    ASSERT_TRUE(blocker.remove());
    preferences.maxThreadsStepper->stepUp();
    EXPECT_EQ(preferences.settingsNote->stringValue(), QString());
    ASSERT_TRUE(QFile::remove(folder_.filePath(u"below/settings.ini"_s)) && QDir(folder_.path()).rmdir(u"below"_s) &&
                blocker.open(QFile::WriteOnly));
    preferences.shnlenTrackListingFormat->enterText(u"%name"_s);
    EXPECT_TRUE(preferences.settingsNote->stringValue().contains(u"could not be saved"_s));
}

TEST_F(Preferences, ADamagedFileIsToldFromTheStart)
{
    QFile file(path_);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[General]\nhalf a line\n");
    file.close();
    settings_.reopen(path_);
    EXPECT_TRUE(start().settingsNote->stringValue().contains(u"are damaged"_s));
}

TEST_F(Preferences, AFileOfALaterVersionIsToldAndAChangeLeavesTheRestOfIt)
{
    QFile file(path_);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[General]\nmaxThreads=4\nnovelty=7\nsettingsVersion=2\n");
    file.close();
    settings_.reopen(path_);
    PreferencesController& preferences = start();
    EXPECT_TRUE(preferences.settingsNote->stringValue().contains(u"later version"_s));
    EXPECT_EQ(preferences.maxThreadsStepper->intValue(), 4);
    preferences.maxThreadsStepper->stepUp();
    EXPECT_EQ(savedThreads(), 5);
    EXPECT_EQ(saved(u"novelty"_s), u"7"_s);
    EXPECT_TRUE(preferences.settingsNote->stringValue().contains(u"later version"_s));
}

TEST_F(Preferences, AFileThatMayOnlyBeReadIsToldAndKeepsWhatItHolds)
{
    settings_.set(u"maxThreads"_s, 4);
    PreferencesController& preferences = start();
    const auto bytes = [this] {
        QFile file(path_);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray before = bytes();
    ASSERT_TRUE(QFile::setPermissions(path_, QFile::ReadOwner));
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::ExeOwner));
    {
        const OrdinaryRights rights;
        if (!rights.hold()) GTEST_SKIP() << "this root may not give its rights away";
        preferences.maxThreadsStepper->stepUp();
        EXPECT_TRUE(preferences.settingsNote->stringValue().contains(u"could not be saved"_s));
    }
    QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_EQ(posted_.size(), 1U);
    EXPECT_EQ(std::any_cast<int>(posted_[0]), 5) << "it holds for this run";
    EXPECT_THAT(before.toStdString(), testing::HasSubstr("maxThreads=4"));
    EXPECT_EQ(bytes(), before);
}

TEST_F(Preferences, TheInterfaceIsLoadedOnceAndTheWindowStaysTheSame)
{
    int loads = 0;
    installInterface(u"Preferences"_s, [&](void*) { ++loads; });
    PreferencesController& preferences = start();
    installInterface(u"Preferences"_s, nullptr);
    EXPECT_EQ(loads, 1);
    const auto window = preferences.window();
    preferences.showWindow();
    EXPECT_TRUE(window->isVisible());
    window->close();
    preferences.showWindow();
    EXPECT_EQ(preferences.window(), window);
    EXPECT_TRUE(window->isVisible());
}
