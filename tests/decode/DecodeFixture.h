// What the tests of decoding share: a decode tab in a controller, fake or real tools, panels and a desktop.
#pragma once

#include "decode/DecodeFlacTask.h"
#include "decode/DecodeTab.h"
#include "engine/OutputWindowController.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/UserDefaults.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"
#include "support/EventLoop.h"
#include "support/LogCapture.h"
#include "support/RecordingDesktop.h"
#include "support/ScriptedPanels.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace zolt::test {

class DecodeTest : public testing::Test
{
protected:
    DecodeTest()
    {
        tab.tabViewItem = std::make_shared<TabViewItem>(Constants::DECODE);
        tab.zoltController = &controller;
        controller.decodeTab = &tab;
        controller.tabView->addTabViewItem(tab.tabViewItem);
        tab.awakeFromNib();
        controller.awakeFromNib();
        controller.applicationDidFinishLaunching();
    }
    ZOLTTaskQueue& queue() { return *controller.taskQueue(); }
    QString pathOf(const QString& name) const { return folder_.filePath(name); }
    QString folder() const { return folder_.path(); }
    bool exists(const QString& name) const { return QFile::exists(pathOf(name)); }
    void holdQueue() { queue().maxThreadsChanged({QString(), nullptr, 0}); }
    void runQueue()
    {
        ASSERT_TRUE(runUntil([this] { return queue().taskCount() == 0; }));
    }

    /// Before the controller, whose queue reads its limit from them.
    struct Settings
    {
        explicit Settings(const QString& file)
        {
            UserDefaults::standard().reopen(file);
            ZOLTController::initialize();
        }
    };

    QTemporaryDir folder_;
    Settings settings_{folder_.filePath(QStringLiteral("settings.ini"))};
    ScriptedPanels panels_;
    RecordingDesktop desktop_;
    ZOLTController controller;
    DecodeTab tab;
};

/// Runs a program to its end. @return its output, both streams
inline QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(60000);
    return process.readAll();
}

} // namespace zolt::test
