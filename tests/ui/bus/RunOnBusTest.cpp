#include "ui/bus/RunOnBus.h"

#include "PrivateBus.h"
#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "support/EventLoop.h"
#include "ui/bus/Names.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>

#include <poll.h>
#include <unistd.h>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

const QString notifications = u"org.freedesktop.Notifications"_s;
const QString portal = u"org.freedesktop.portal.Desktop"_s;
const QString login = u"org.freedesktop.login1"_s;

/// Plays the services of a desktop and writes down what they are asked.
class FakeDesktop : public QDBusVirtualObject
{
public:
    explicit FakeDesktop(const QDBusConnection& bus) : bus_(bus)
    {
        EXPECT_TRUE(bus_.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath));
        EXPECT_EQ(::pipe(ends_), 0);
    }
    ~FakeDesktop() override
    {
        bus_.unregisterObject(u"/"_s, QDBusConnection::UnregisterTree);
        ::close(ends_[0]);
        if (ends_[1] >= 0) ::close(ends_[1]);
    }
    void offer(const QString& service) { EXPECT_TRUE(bus_.registerService(service)); }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override
    {
        asked += call;
        if (holdsAnswersBack)
            waiting_ += call;
        else
            connection.send(answerTo(call));
        return true;
    }
    void answer()
    {
        for (const auto& call : std::exchange(waiting_, {}))
            bus_.send(answerTo(call));
    }
    qsizetype count(const QString& member) const
    {
        return std::count_if(asked.begin(), asked.end(), [&](const auto& call) { return call.member() == member; });
    }
    const QDBusMessage& last(const QString& member) const
    {
        const auto found =
            std::find_if(asked.rbegin(), asked.rend(), [&](const auto& call) { return call.member() == member; });
        return *found;
    }
    /// Whether the login service's descriptor has been closed by whoever had it.
    bool isGivenBack()
    {
        if (ends_[1] >= 0) ::close(std::exchange(ends_[1], -1));
        pollfd end{ends_[0], 0, 0};
        return ::poll(&end, 1, 0) > 0 && (end.revents & POLLHUP);
    }

    QList<QDBusMessage> asked;
    bool holdsAnswersBack = false;

private:
    QDBusMessage answerTo(const QDBusMessage& call)
    {
        if (call.member() == u"Notify"_s) return call.createReply(7U);
        if (call.interface() == u"org.freedesktop.portal.Inhibit"_s)
            return call.createReply(QVariant::fromValue(QDBusObjectPath(u"/request/1"_s)));
        if (call.member() == u"Inhibit"_s)
            return call.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(ends_[1])));
        return call.createReply();
    }
    QDBusConnection bus_;
    QList<QDBusMessage> waiting_;
    int ends_[2] = {-1, -1};
};

class RunOnBusTest : public testing::Test
{
protected:
    RunOnBusTest() { queue_.maxThreadsChanged({QString(), nullptr, 1}); }

    QDBusConnection program() { return bus_.connection(u"program"_s); }
    QDBusConnection none() { return QDBusConnection(u"no such connection"_s); }
    std::shared_ptr<ZOLTTask> begin()
    {
        const auto task = ZOLTTask::initWithQueue(&queue_);
        queue_.addTask(task);
        runPosted();
        return task;
    }
    void end(const std::shared_ptr<ZOLTTask>& task)
    {
        task->stopTask(nullptr);
        task->setResults(nullptr);
        queue_.taskCompleted(task);
        runPosted();
    }
    bool comes(const QString& member, qsizetype count = 1)
    {
        return runUntil([&] { return desktop_.count(member) >= count; });
    }

    PrivateBus bus_;
    FakeDesktop desktop_{bus_.connection(u"desktop"_s)};
    ZOLTTaskQueue queue_;
    RunRecord record_{queue_};
    bool inFront_ = false;
};

TEST_F(RunOnBusTest, EndOfARunIsToldWhereNobodyLooksAtTheProgram)
{
    desktop_.offer(notifications);
    RunOnBus told(
        record_, [this] { return inFront_; }, program(), none());
    bool shown = false;
    told.setShowReport([&shown] { shown = true; });
    end(begin());
    ASSERT_TRUE(comes(u"Notify"_s));
    const QVariantList arguments = desktop_.last(u"Notify"_s).arguments();
    EXPECT_EQ(arguments[3].toString(), u"All tasks are complete"_s);
    EXPECT_EQ(arguments[4].toString(), u"1 OK, 0:00"_s);
    EXPECT_TRUE(arguments[5].toStringList().contains(u"Show report"_s));

    QDBusConnection desktop = bus_.connection(u"desktop"_s);
    const auto press = [&](uint id) {
        auto action =
            QDBusMessage::createSignal(u"/org/freedesktop/Notifications"_s, notifications, u"ActionInvoked"_s);
        action << id << u"report"_s;
        desktop.send(action);
    };
    press(8); // another program's
    press(7);
    EXPECT_TRUE(runUntil([&] { return shown; }));

    end(begin());
    ASSERT_TRUE(comes(u"Notify"_s, 2));
    EXPECT_EQ(desktop_.last(u"Notify"_s).arguments()[1].toUInt(), 7U) << "takes the place of the one before";
}

TEST_F(RunOnBusTest, ReportThatNamesABadFileIsToldAsAFailure)
{
    desktop_.offer(notifications);
    RunOnBus told(
        record_, [this] { return inFront_; }, program(), none());
    const auto task = begin();
    task->results()->appendResults(u"Verify MD5: list.md5\na : OK\nb : FAILED\n"_s);
    task->stopTask(nullptr);
    queue_.taskCompleted(task);
    runPosted();
    ASSERT_TRUE(comes(u"Notify"_s));
    const QVariantList arguments = desktop_.last(u"Notify"_s).arguments();
    EXPECT_EQ(arguments[3].toString(), u"Some tasks failed"_s);
    EXPECT_EQ(arguments[4].toString(), u"1 failed, 0:00"_s);
}

TEST_F(RunOnBusTest, NothingIsToldToWhoLooksAtTheProgram)
{
    desktop_.offer(notifications);
    desktop_.offer(portal);
    RunOnBus told(
        record_, [this] { return inFront_; }, program(), none());
    inFront_ = true;
    end(begin());
    ASSERT_TRUE(comes(u"Close"_s)); // behind which a notification would have come
    EXPECT_EQ(desktop_.count(u"Notify"_s), 0);
}

TEST_F(RunOnBusTest, PortalIsAskedToKeepTheSessionAwakeForAsLongAsTasksRun)
{
    desktop_.offer(portal);
    RunOnBus told(
        record_, [] { return true; }, program(), none());
    const auto task = begin();
    ASSERT_TRUE(comes(u"Inhibit"_s));
    EXPECT_EQ(desktop_.last(u"Inhibit"_s).arguments()[1].toUInt(), 5U) << "logout and suspend";
    EXPECT_EQ(desktop_.count(u"Close"_s), 0);
    end(task);
    ASSERT_TRUE(comes(u"Close"_s));
    EXPECT_EQ(desktop_.last(u"Close"_s).path(), u"/request/1"_s);
}

TEST_F(RunOnBusTest, AnswerThatComesAfterTheEndIsGivenBack)
{
    desktop_.offer(portal);
    desktop_.holdsAnswersBack = true;
    RunOnBus told(
        record_, [] { return true; }, program(), none());
    end(begin());
    ASSERT_TRUE(comes(u"Inhibit"_s));
    desktop_.answer();
    EXPECT_TRUE(comes(u"Close"_s));
}

TEST_F(RunOnBusTest, LoginServiceIsAskedWhereThereIsNoPortal)
{
    desktop_.offer(login);
    {
        RunOnBus told(
            record_, [] { return true; }, none(), program());
        const auto task = begin();
        ASSERT_TRUE(comes(u"Inhibit"_s));
        EXPECT_EQ(desktop_.last(u"Inhibit"_s).arguments()[0].toString(), u"sleep:shutdown"_s);
        end(task);
    }
    EXPECT_TRUE(runUntil([this] { return desktop_.isGivenBack(); }));
}

TEST_F(RunOnBusTest, WithoutABusNothingHappens)
{
    RunOnBus told(
        record_, [] { return false; }, none(), none());
    end(begin());
    EXPECT_TRUE(desktop_.asked.isEmpty());
}

/// Hears what docks hear.
class Dock : public QObject
{
    Q_OBJECT

public:
    explicit Dock(QDBusConnection bus)
    {
        bus.connect({}, QString::fromUtf16(busName::object), u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s, this,
                    SLOT(update(QString, QVariantMap)));
    }
    QList<QVariantMap> updates;

public Q_SLOTS:
    void update(const QString&, const QVariantMap& properties) { updates += properties; }
};

TEST_F(RunOnBusTest, DocksShowHowFarTheRunIs)
{
    Dock dock(bus_.connection(u"desktop"_s));
    RunOnBus told(
        record_, [] { return true; }, program(), none());
    const auto task = begin();
    task->stageBegins();
    task->progressIndicator()->setDoubleValue(50.0);
    ASSERT_TRUE(runUntil([&] { return !dock.updates.isEmpty(); }));
    EXPECT_EQ(dock.updates.last()[u"progress-visible"_s], true);
    EXPECT_EQ(dock.updates.last()[u"progress"_s], 0.5);
    end(task);
    EXPECT_TRUE(runUntil([&] { return dock.updates.last()[u"progress-visible"_s] == false; }));
}

} // namespace
} // namespace zolt::test

#include "RunOnBusTest.moc"
