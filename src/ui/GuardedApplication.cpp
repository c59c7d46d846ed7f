#include "ui/GuardedApplication.h"

#include "platform/Product.h"
#include "platform/errors/Exceptions.h"
#include "ui/bus/Names.h"

#include <QPalette>

/// The bundled drawings lie in a static library, which no linker takes them from unasked. Outside every namespace, as
/// the macro wants it.
static void loadDrawings()
{
    Q_INIT_RESOURCE(zolt);
}

namespace zolt {

namespace {

/// Some desktops leave the colour of hints in fields as it is in light windows, whatever the fields' own is.
void keepHintsReadable()
{
    QPalette palette = QApplication::palette();
    QColor text = palette.color(QPalette::Text);
    const int ground = palette.color(QPalette::Base).lightness();
    const bool isBrighter = palette.color(QPalette::PlaceholderText).lightness() > ground;
    if (isBrighter == (text.lightness() > ground)) return;
    text.setAlpha(128); // half of it
    palette.setColor(QPalette::PlaceholderText, text);
    QApplication::setPalette(palette);
}

} // namespace

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    loadDrawings();
    setApplicationName(QLatin1String(product::program));
    setApplicationVersion(QLatin1String(product::version));
    setWindowIcon(
        QIcon::fromTheme(QString::fromUtf16(busName::application), QIcon(QStringLiteral(":/icons/zolt.svg"))));
    setQuitOnLastWindowClosed(false); // quitting is a sequence of the program's own
    keepHintsReadable();
}

bool GuardedApplication::event(QEvent* event)
{
    const bool handled = QApplication::event(event);
    if (event->type() == QEvent::ApplicationPaletteChange) keepHintsReadable();
    return handled;
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    bool handled = false;
    const auto work = [&] { handled = QApplication::notify(receiver, event); };
    guarded("event", std::ref(work)); // by reference: this runs for each event and should allocate nothing
    return handled;
}

} // namespace zolt
