// The program with its windows.
#pragma once

#include "ui/QtDesktop.h"
#include "ui/QtInterfaces.h"
#include "ui/panels/QtPanels.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace zolt {

class MainWindow;
class Program;
class RunOnBus;
class RunDesk;

/// Made after the application object. Main thread.
class WindowProgram
{
public:
    WindowProgram();
    ~WindowProgram();
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;

    /// Shows the main window, or brings it to the front. The first time it also tells what is wrong with the file of
    /// the settings.
    void present();
    /// Takes in files as the desktop hands them over.
    void openFiles(const QStringList& paths);
    /// What an action of the program's icon does.
    void selectTab(int index);
    /// Called when a person has quit it, before its work is ended, which may take as long as the tools at work do.
    void setEnding(std::function<void()> ending) { ending_ = std::move(ending); }
    /// What a request that still comes then is for: another start of the program, with these files.
    void setStartAnew(std::function<void(const QStringList& paths)> startAnew) { startAnew_ = std::move(startAnew); }
    /// Called once the program has ended its work after a person quit it.
    void setEnded(std::function<void()> ended) { ended_ = std::move(ended); }

    Program& program() { return *program_; }
    MainWindow& mainWindow() { return *mainWindow_; }
    QtInterfaces& interfaces() { return interfaces_; }
    RunDesk& runDesk() { return *runDesk_; }

private:
    void terminate();
    void end();
    void handOn(const QStringList& paths);

    QtPanels panels_;
    QtDesktop desktop_;
    QtInterfaces interfaces_;
    std::unique_ptr<Program> program_;
    std::unique_ptr<MainWindow> mainWindow_;
    std::unique_ptr<RunOnBus> onBus_;
    std::unique_ptr<RunDesk> runDesk_;
    std::function<void()> ending_;
    std::function<void(const QStringList&)> startAnew_;
    std::function<void()> ended_;
    bool toldOfSettings_ = false;
    enum class Phase { Running, Asking, Ending } phase_ = Phase::Running;
};

} // namespace zolt
