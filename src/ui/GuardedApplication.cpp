#include "ui/GuardedApplication.h"

#include "platform/Product.h"
#include "platform/errors/Exceptions.h"
#include "ui/bus/Names.h"

/// The bundled drawings lie in a static library, which no linker takes them from unasked. Outside every namespace, as
/// the macro wants it.
static void loadDrawings()
{
    Q_INIT_RESOURCE(zolt);
}

namespace zolt {

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    loadDrawings();
    setApplicationName(QLatin1String(product::program));
    setApplicationVersion(QLatin1String(product::version));
    setWindowIcon(
        QIcon::fromTheme(QString::fromUtf16(busName::application), QIcon(QStringLiteral(":/icons/zolt.svg"))));
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
