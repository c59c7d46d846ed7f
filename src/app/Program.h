// The program as both front ends run it: the controller and the tabs, connected.
#pragma once

#include <QString>

#include <memory>

namespace zolt {

class BaseTab;
class DecodeTab;
class ZOLTController;

/// Made once, after the application object and after the front end has installed its panels, desktop and interfaces.
/// Main thread.
class Program
{
public:
    /// Goes through the whole start: default settings, controller, tabs, interfaces, end of launching.
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    ZOLTController& controller() { return *controller_; }
    DecodeTab& decodeTab() { return *decodeTab_; }

    /// Ends the program's work: cancels every open task, waits for the running tools, and returns when no task's
    /// thread runs and nothing waits for the main thread. The event loop goes on meanwhile.
    void finish();

private:
    void connect(BaseTab& tab, const QString& label);

    std::unique_ptr<ZOLTController> controller_;
    std::unique_ptr<DecodeTab> decodeTab_;
};

} // namespace zolt
