#include "ui/GuardedApplication.h"

#include "platform/Product.h"
#include "platform/errors/Exceptions.h"

namespace zolt {

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName(QLatin1String(product::program));
    setApplicationDisplayName(QLatin1String(product::name));
    setApplicationVersion(QLatin1String(product::version));
    setQuitOnLastWindowClosed(false); // quitting is a sequence of the program's own
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    bool handled = false;
    const auto work = [&] { handled = QApplication::notify(receiver, event); };
    guarded("event", std::ref(work)); // by reference: this runs for each event and should allocate nothing
    return handled;
}

} // namespace zolt
