#include "ui/bus/ApplicationBus.h"

#include "PrivateBus.h"
#include "support/EventLoop.h"
#include "ui/bus/Names.h"

#include <QDBusMessage>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

/// A bus of the test's own, with two connections: the program that runs and one that starts later.
class ApplicationBusTest : public testing::Test
{
protected:
    QDBusConnection connection(const QString& name) { return bus_.connection(name); }
    void listen(ApplicationBus& bus)
    {
        bus.setHandlers({.activate = [this] { ++activations; },
                         .open = [this](const QStringList& paths) { opened += paths; },
                         .selectTab = [this](int index) { tab = index; }});
    }
    /// Hands over on a thread of its own, as another program would.
    bool handOver(const OpenRequest& request)
    {
        std::atomic<int> taken = -1;
        std::thread other([&] { taken = ApplicationBus(connection(u"second"_s)).handOver(request); });
        EXPECT_TRUE(runUntil([&] { return taken >= 0; }));
        other.join();
        return taken == 1;
    }

    PrivateBus bus_;
    int activations = 0;
    QStringList opened;
    int tab = -1;
};

TEST_F(ApplicationBusTest, TheFirstProgramIsTheOne)
{
    ApplicationBus first(connection(u"first"_s));
    EXPECT_TRUE(first.becomeTheOne());
    ApplicationBus second(connection(u"second"_s));
    EXPECT_FALSE(second.becomeTheOne());
}

TEST_F(ApplicationBusTest, FilesOfALaterStartReachTheRunningProgram)
{
    ApplicationBus first(connection(u"first"_s));
    ASSERT_TRUE(first.becomeTheOne());
    listen(first);
    EXPECT_TRUE(handOver({{u"/music/a b.flac"_s, u"/music/größe%20.flac"_s}, -1}));
    EXPECT_TRUE(runUntil([this] { return !opened.isEmpty(); }));
    EXPECT_THAT(opened, ElementsAre(u"/music/a b.flac"_s, u"/music/größe%20.flac"_s));
    EXPECT_EQ(activations, 1);
}

TEST_F(ApplicationBusTest, ALaterStartWithNothingBringsTheWindowToTheFront)
{
    ApplicationBus first(connection(u"first"_s));
    ASSERT_TRUE(first.becomeTheOne());
    listen(first);
    EXPECT_TRUE(handOver({}));
    EXPECT_EQ(activations, 1);
}

TEST_F(ApplicationBusTest, ActionsSelectATab)
{
    ApplicationBus first(connection(u"first"_s));
    ASSERT_TRUE(first.becomeTheOne());
    listen(first);
    EXPECT_TRUE(handOver({{}, 1}));
    EXPECT_EQ(tab, 1);
}

TEST_F(ApplicationBusTest, WhatComesBeforeTheWindowWaitsForIt)
{
    ApplicationBus first(connection(u"first"_s));
    ASSERT_TRUE(first.becomeTheOne());
    EXPECT_TRUE(handOver({{u"/music/a.flac"_s}, -1}));
    EXPECT_TRUE(opened.isEmpty());
    listen(first);
    EXPECT_TRUE(runUntil([this] { return !opened.isEmpty(); }));
}

TEST_F(ApplicationBusTest, StrangeRequestsAreSurvived)
{
    ApplicationBus first(connection(u"first"_s));
    ASSERT_TRUE(first.becomeTheOne());
    listen(first);
    QDBusConnection other = connection(u"second"_s);
    const auto send = [&](const QString& method, const QVariantList& arguments) {
        auto call = QDBusMessage::createMethodCall(QString::fromUtf16(busName::application),
                                                   QString::fromUtf16(busName::object),
                                                   u"org.freedesktop.Application"_s, method);
        call.setArguments(arguments);
        other.send(call);
    };
    send(u"ActivateAction"_s, {u"make-coffee"_s, QVariantList(), QVariantMap()});
    send(u"ActivateAction"_s, {u"select-tab-x"_s, QVariantList(), QVariantMap()});
    send(u"Open"_s, {QStringList{u"https://example.org/a.flac"_s}, QVariantMap()});
    EXPECT_TRUE(runUntil([this] { return activations == 1; }));
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_EQ(tab, -1);
}

TEST_F(ApplicationBusTest, AStartBehindItsEndIsTheOne)
{
    ApplicationBus first(connection(u"first"_s));
    ASSERT_TRUE(first.becomeTheOne());
    first.letGo();
    ApplicationBus second(connection(u"second"_s));
    EXPECT_TRUE(second.becomeTheOne());
}

TEST(NoBusTest, WithoutABusEveryStartIsTheOne)
{
    ApplicationBus bus(QDBusConnection(u"no such connection"_s));
    EXPECT_TRUE(bus.becomeTheOne());
}

} // namespace
} // namespace zolt::test
