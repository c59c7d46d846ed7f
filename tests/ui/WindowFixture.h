// The whole program with its windows, its own settings and tools, and panels that a test answers.
#pragma once

#include "app/Program.h"
#include "app/Tabs.h"
#include "app/zolt/WindowProgram.h"
#include "decode/DecodeTab.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "platform/files/NamedFile.h"
#include "platform/threads/DetachedThreads.h"
#include "shell/ZOLTController.h"
#include "support/EventLoop.h"
#include "support/QueueRun.h"
#include "support/ScriptedPanels.h"
#include "ui/MainWindow.h"
#include "ui/pages/TabPage.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace zolt::test {

class WindowTest : public testing::Test
{
protected:
    WindowTest()
    {
        window().present();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    ~WindowTest() override
    {
        waitForDetachedThreads(); // one could be inside a queue that is gone, or post its report to it
        runPosted();
        qunsetenv("ZOLT_TOOLS");
    }

    MainWindow& window() { return program_.mainWindow(); }
    ZOLTController& controller() { return program_.program().controller(); }
    DecodeTab& tab() { return program_.program().tab<DecodeTab>(); }
    ZOLTTaskQueue& queue() { return *controller().taskQueue(); }

    /// The about tab stands behind those of the table.
    static int aboutTab() { return int(tabRows().size()); }
    /// The widget of that name on the page in front, or else in the main window.
    template <class Widget> Widget& widget(const char* name)
    {
        auto* found = window().page()->findChild<Widget*>(QString::fromLatin1(name));
        if (!found) found = window().findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    /// The window that the interface of that name was built as.
    template <class Widget> Widget& windowNamed(const char* name)
    {
        for (QWidget* each : program_.interfaces().windows()) {
            if (each->objectName() == QLatin1String(name)) return *static_cast<Widget*>(each);
        }
        ADD_FAILURE() << "no window " << name;
        throw std::runtime_error(name);
    }
    /// How many reports have a window of their own.
    qsizetype openReports()
    {
        const auto windows = program_.interfaces().windows();
        return std::count_if(windows.begin(), windows.end(),
                             [](const QWidget* each) { return each->objectName() == QLatin1String("OutputWindow"); });
    }
    QString pathOf(const QString& name) const { return folder_.filePath(name); }
    /// Makes a file with a few bytes, its folders included.
    QString file(const QString& name)
    {
        const QString path = pathOf(name);
        EXPECT_TRUE(makeDirectories(path::deletingLastComponent(path)));
        NamedFile made(path);
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write("0123456789");
        return path;
    }
    /// A tool of the tools directory that does this.
    void tool(const QString& name, const QByteArray& script)
    {
        QFile made(tools_.filePath(name));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write("#!/bin/sh\n" + script);
        made.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    /// A name that is not UTF-8, as old collections have it; a person reads "sätze.flac".
    static QString oldName() { return nameOfBytes("s\xe4tze.flac"); }
    bool listBecomes(qsizetype count)
    {
        return runUntil([&] { return tab().fileNames().count() == count; });
    }
    void add(const QStringList& files)
    {
        tab().addFiles(files);
        runPosted();
    }
    void settle() { ASSERT_TRUE(runToEnd(queue())); }

    /// Settings and tools stand before the program is made.
    struct Place
    {
        Place(const QString& settings, const QString& tools)
        {
            UserDefaults::standard().reopen(settings);
            qputenv("ZOLT_TOOLS", QFile::encodeName(tools));
        }
    };
    QTemporaryDir folder_;
    QTemporaryDir tools_;
    Place place_{folder_.filePath(QStringLiteral("settings.ini")), tools_.path()};
    WindowProgram program_;
    ScriptedPanels panels_;
};

} // namespace zolt::test
