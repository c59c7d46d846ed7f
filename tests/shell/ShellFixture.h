// What the tests of tabs and controller share: a controller with tabs of every label, panels and a desktop.
#pragma once

#include "engine/ZOLTTaskQueue.h"
#include "platform/threads/MainQueue.h"
#include "shell/BaseTab.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"
#include "support/RecordingDesktop.h"
#include "support/ScriptedPanels.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zolt::test {

class PlainTab : public BaseTab
{
public:
    void displayRelevantOptions() override { ++displays; }
    void filesAdded() override { ++additions; }
    void executeCommand(Sender) override
    {
        pressed = fileNames().copy();
        clearFiles();
    }
    QStringList pressed; ///< the list when the command was pressed last
    int displays = 0;
    int additions = 0;
};

class ShellTest : public testing::Test
{
protected:
    ShellTest()
    {
        controller.addTab(decode, Constants::DECODE);
        controller.addTab(encode, Constants::ENCODE);
        controller.addTab(checksum, Constants::CHECKSUM);
        controller.addTab(lossy, Constants::LOSSY);
        controller.addTab(tags, Constants::TAGS);
        controller.addTab(util, Constants::UTIL);
        controller.tabView->addTabViewItem(std::make_shared<TabViewItem>(Constants::ABOUT));
        controller.awakeFromNib();
        controller.applicationDidFinishLaunching();
    }
    /// Makes a file below the test's folder, with its folders. @return its path
    QString file(const QString& name, const QByteArray& content = {})
    {
        const QString path = folder_.filePath(name);
        QDir().mkpath(path::deletingLastComponent(path));
        QFile made(path);
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(content);
        return path;
    }
    QString folder() const { return folder_.path(); }

    ScriptedPanels panels_;
    RecordingDesktop desktop_;
    ZOLTController controller;
    PlainTab decode, encode, checksum, lossy, tags, util;

private:
    QTemporaryDir folder_;
};

/// A WAV file of four frames: 16-bit mono at 44,100 Hz.
inline QByteArray wavBytes()
{
    return QByteArray::fromHex("52494646"
                               "2c000000"
                               "57415645"
                               "666d7420"
                               "10000000"
                               "0100"
                               "0100"
                               "44ac0000"
                               "88580100"
                               "0200"
                               "1000"
                               "64617461"
                               "08000000"
                               "0000000000000000");
}

} // namespace zolt::test
