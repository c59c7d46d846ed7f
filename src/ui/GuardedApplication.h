// The application object: no fault of a handler ever leaves the event loop.
#pragma once

#include <QApplication>

namespace zolt {

/// What a slot or an event handler throws is logged, and the loop goes on. Main thread.
class GuardedApplication : public QApplication
{
public:
    GuardedApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;

protected:
    bool event(QEvent* event) override;
};

} // namespace zolt
