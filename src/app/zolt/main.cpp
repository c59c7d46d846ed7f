// zolt: the program with its windows.

#include "app/zolt/CommandLine.h"
#include "app/zolt/WindowProgram.h"
#include "platform/files/FileNames.h"
#include "platform/process/ChildProcess.h"
#include "platform/threads/MainQueue.h"
#include "ui/GuardedApplication.h"
#include "ui/bus/Names.h"

#include <QFile>
#include <QProcess>

#include <cstdio>

namespace {

using namespace zolt;

constexpr int wrongUsage = 2;

QStringList argumentTexts(int argc, char** argv)
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments += nameOfBytes(argv[index]);
    return arguments;
}

int say(std::FILE* where, const QString& text, int status)
{
    std::fputs(qUtf8Printable(text), where);
    return status;
}

int run(int argc, char** argv, const OpenRequest& request)
{
    QApplication::setDesktopFileName(QString::fromUtf16(busName::application));
    ChildProcess::takeSignalsBack();
    GuardedApplication application(argc, argv);
    MainQueue::instance(); // makes this thread the main one
    ApplicationBus bus;
    if (!bus.becomeTheOne() && bus.handOver(request)) return say(stdout, handedOverText(request), 0);
    WindowProgram window;
    window.setEnding([&] { bus.letGo(); }); // a start from here on is a program of its own
    window.setStartAnew(
        [](const QStringList& paths) { QProcess::startDetached(QCoreApplication::applicationFilePath(), paths); });
    window.setEnded([] { QApplication::exit(0); });
    if (request.tab >= 0) window.selectTab(request.tab);
    window.present();
    bus.setHandlers({.activate = [&] { window.present(); },
                     .open = [&](const QStringList& paths) { window.openFiles(paths); },
                     .selectTab = [&](int index) { window.selectTab(index); }});
    postToMain([&] { window.openFiles(request.files); }); // once the window is there, for alerts about them
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const CommandLine line = readCommandLine(argumentTexts(argc, argv));
    switch (line.action) {
    case CommandLine::Action::Help:
        return say(stdout, helpText(), 0);
    case CommandLine::Action::Version:
        return say(stdout, versionText(), 0);
    case CommandLine::Action::Wrong:
        return say(stderr, QStringLiteral("zolt: %1. See zolt --help.\n").arg(line.fault), wrongUsage);
    case CommandLine::Action::Run:
        break;
    }
    return run(argc, argv, line.request);
}
