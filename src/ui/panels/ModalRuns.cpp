#include "ui/panels/ModalRuns.h"

#include <QEvent>

namespace zolt {

namespace {

/// Ends the loop when the window goes without a word, so that a run always ends.
class EndsWithWindow : public QObject
{
public:
    EndsWithWindow(QWidget& window, QEventLoop& loop) : loop_(loop) { window.installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && !event->spontaneous()) loop_.quit();
        return QObject::eventFilter(watched, event);
    }

private:
    QEventLoop& loop_;
};

} // namespace

void ModalRuns::run(QWidget& widget)
{
    QEventLoop loop;
    const EndsWithWindow ending(widget, loop);
    widget.hide(); // modality takes hold at the next showing
    widget.setWindowModality(Qt::ApplicationModal);
    widget.show();
    widget.activateWindow();
    loops_.push_back(&loop);
    loop.exec();
    loops_.pop_back();
    widget.hide();
}

void ModalRuns::stop()
{
    if (!loops_.empty()) loops_.back()->quit();
}

} // namespace zolt
