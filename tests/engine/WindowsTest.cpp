#include "EngineFixture.h"
#include "engine/OutputWindowController.h"
#include "engine/StatusPanelController.h"
#include "platform/desktop/Interfaces.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

TEST(StatusQueueCell, PlacesNameBarButtonAndStatusFromTopToBottom)
{
    StatusQueueCell cell;
    const ButtonStyle style{.imageSize = 15.0};
    cell.setCancelButton(std::make_shared<Button>(style));
    const auto places = cell.drawInteriorWithFrameInView({10, 100, 300, 52});
    EXPECT_EQ(places.progressIndicator, QRectF(10, 121, 260, 15));
    EXPECT_EQ(places.textField, QRectF(10, 104, 260, 18));
    EXPECT_EQ(places.topTextField, QRectF(10, 136, 260, 10));
    EXPECT_EQ(places.cancelButton, QRectF(275, 121, 15, 15));
}

using OutputWindows = EngineTest;

TEST_F(OutputWindows, EachReportOpensItsOwnOffsetFromTheOneBefore)
{
    queue_.showOutputWindowTitle(u"a"_s, u"one"_s);
    queue_.showOutputWindowTitle(u"b"_s, u"two"_s);
    const auto windows = queue_.outputWindows();
    ASSERT_EQ(windows.size(), 2U);
    const QPointF first = windows[0]->window()->frameTopLeftPoint();
    const QPointF second = windows[1]->window()->frameTopLeftPoint();
    EXPECT_GT(first.x(), 0);
    EXPECT_EQ(second - first, first);
    EXPECT_TRUE(windows[0]->window()->isVisible() && windows[1]->window()->isVisible());
    EXPECT_EQ(windows[0]->textField()->string(), u"a"_s);
    EXPECT_EQ(windows[0]->textField()->font(), (Font{u"Courier"_s, 10.0}));
}

TEST_F(OutputWindows, ReportWithoutATitleIsTitledOutput)
{
    queue_.showOutputWindowTitle(u"a"_s, std::nullopt);
    EXPECT_EQ(queue_.outputWindows()[0]->window()->title(), u"Output"_s);
}

TEST_F(OutputWindows, WindowMadeOnATaskThreadIsBuiltOnTheMainThread)
{
    void* built = nullptr;
    bool onMain = false, shownBefore = true;
    installInterface(u"OutputWindow"_s, [&](void* owner) {
        built = owner;
        onMain = isMainThread();
        const auto& window = *static_cast<OutputWindowController*>(owner)->window();
        shownBefore = window.isVisible();
    });
    detachThread([&] { queue_.showOutputWindowTitle(u"a"_s, u"t"_s); });
    waitForDetachedThreads();
    MainQueue::instance().drain();
    installInterface(u"OutputWindow"_s, {});
    EXPECT_EQ(built, queue_.outputWindows()[0].get());
    EXPECT_TRUE(onMain);
    EXPECT_FALSE(shownBefore) << "the view must be there to follow the order to the front";
    EXPECT_TRUE(queue_.outputWindows()[0]->window()->isVisible());
}

TEST(StatusPanel, ForwardsToItsControls)
{
    StatusPanelController panel;
    panel.windowDidLoad();
    panel.setText(u"working"_s);
    panel.setInDeterminate();
    EXPECT_TRUE(panel.progressBar()->isIndeterminate());
    panel.setDeterminateMax(5, 50);
    panel.setProgress(10);
    panel.incrementProgress(2.5);
    panel.startAnimation(nullptr);
    EXPECT_EQ(panel.textField()->stringValue(), u"working"_s);
    EXPECT_FALSE(panel.progressBar()->isIndeterminate());
    EXPECT_EQ(panel.progressBar()->minValue(), 5);
    EXPECT_EQ(panel.progressBar()->maxValue(), 50);
    EXPECT_EQ(panel.progressBar()->doubleValue(), 12.5);
    EXPECT_TRUE(panel.progressBar()->isAnimating());
    panel.stopAnimation(nullptr);
    EXPECT_FALSE(panel.progressBar()->isAnimating());
}
