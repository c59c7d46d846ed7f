#include "platform/desktop/Panels.h"
#include "platform/controls/Window.h"
#include "platform/desktop/Desktop.h"

#include "support/LogCapture.h"
#include "support/RecordingDesktop.h"
#include "support/ScriptedPanels.h"
#include "support/test.h"

#include <gtest/gtest-spi.h>

#include <thread>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(Panels, WithNoneInstalledEveryQuestionIsLoggedAndDismissed)
{
    const test::LogCapture log;
    EXPECT_EQ(panels().runAlert(u"Delete all?"_s, u""_s, u"Yes"_s, u"No"_s), alertReply::otherButton);
    EXPECT_FALSE(panels().openPanel({.title = u"Choose files"_s}));
    EXPECT_FALSE(panels().savePanel({.fileName = u"a.md5"_s}));
    Window window;
    panels().runModalForWindow(window);
    panels().stopModal();
    EXPECT_EQ(log.count(u"Delete all?"_s), 1);
    EXPECT_EQ(log.count(u"Choose files"_s), 1);
    EXPECT_EQ(log.count(u"a.md5"_s), 1);
}

TEST(Panels, ScriptedAnswersAreGivenInOrderAndQuestionsKept)
{
    test::ScriptedPanels scripted;
    scripted.answerAlert(0);
    scripted.answerAlert(1);
    scripted.answerOpenPanel(QStringList{u"/a"_s, u"/b"_s});
    scripted.answerOpenPanel(std::nullopt);
    scripted.answerSavePanel(u"/out.md5"_s);

    EXPECT_EQ(panels().runAlert(u"one"_s, u"first"_s, u"No"_s, u"Yes"_s), 0);
    EXPECT_EQ(panels().runAlert(u"two"_s, QString(), u"OK"_s), 1);
    EXPECT_EQ(panels().openPanel({.title = u"t"_s}), (QStringList{u"/a"_s, u"/b"_s}));
    EXPECT_FALSE(panels().openPanel({}));
    EXPECT_EQ(panels().savePanel({.title = u"Save"_s, .fileName = u"x.md5"_s}), u"/out.md5"_s);

    ASSERT_EQ(scripted.alerts().size(), 2U);
    EXPECT_EQ(scripted.alerts()[0].message, u"first"_s);
    EXPECT_EQ(scripted.alerts()[0].buttons, (QStringList{u"No"_s, u"Yes"_s}));
    EXPECT_EQ(scripted.alerts()[1].buttons, QStringList{u"OK"_s});
    EXPECT_EQ(scripted.openRequests().size(), 2U);
    EXPECT_EQ(scripted.openRequests()[0].title, u"t"_s);
    EXPECT_EQ(scripted.saveRequests().at(0).fileName, u"x.md5"_s);
}

TEST(Panels, AQuestionThatTheTestDoesNotAnswerFailsIt)
{
    test::ScriptedPanels scripted;
    int reply = 1;
    EXPECT_NONFATAL_FAILURE(reply = panels().runAlert(u"unasked"_s, {}, u"Yes"_s), "unasked");
    EXPECT_EQ(reply, alertReply::otherButton);
    EXPECT_NONFATAL_FAILURE((void)panels().openPanel({}), "open panel");
    EXPECT_NONFATAL_FAILURE((void)panels().savePanel({}), "save panel");
}

TEST(Panels, AnAnswerThatNobodyAsksForFailsTheTest)
{
    EXPECT_NONFATAL_FAILURE(
        {
            test::ScriptedPanels scripted;
            scripted.answerAlert(1);
        },
        "was not shown");
}

TEST(Panels, AModalRunGoesOnUntilItIsStopped)
{
    test::ScriptedPanels scripted;
    Window window;
    int runs = 0;
    scripted.answerModal([&](Window& shown) {
        EXPECT_EQ(&shown, &window);
        runs = scripted.modalRuns();
        panels().stopModal();
    });
    panels().runModalForWindow(window);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(scripted.modalRuns(), 0);
    scripted.answerModal([](Window&) {});
    EXPECT_NONFATAL_FAILURE(panels().runModalForWindow(window), "never end");
}

TEST(Panels, AnotherThreadMayAsk)
{
    test::ScriptedPanels scripted;
    scripted.answerAlert(0);
    int reply = 1;
    std::thread([&] { reply = panels().runAlert(u"t"_s, {}, u"No"_s, u"Yes"_s); }).join();
    EXPECT_EQ(reply, 0);
}

TEST(Desktop, WithNoneInstalledNothingHappens)
{
    desktop().setBadgeLabel(u"3"_s);
    desktop().requestUserAttention(10);
    desktop().terminate();
}

TEST(Desktop, TheInstalledOneIsAskedFromAnyThread)
{
    test::RecordingDesktop recorded;
    std::thread([] {
        desktop().setBadgeLabel(u"3"_s);
        desktop().requestUserAttention(10);
    }).join();
    EXPECT_EQ(recorded.badge(), u"3"_s);
    desktop().setBadgeLabel(std::nullopt);
    desktop().terminate();
    EXPECT_EQ(recorded.badges().size(), 2U);
    EXPECT_FALSE(recorded.badge());
    EXPECT_EQ(recorded.attentions(), std::vector<int>{10});
    EXPECT_EQ(recorded.terminations(), 1);
}
