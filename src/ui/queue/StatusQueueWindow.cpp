#include "ui/queue/StatusQueueWindow.h"

#include "engine/OutputWindowController.h"
#include "engine/ZOLTAsyncNSTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/errors/Exceptions.h"
#include "platform/text/Counts.h"
#include "ui/Symbols.h"
#include "ui/WindowPlaces.h"
#include "ui/binding/WindowBinding.h"
#include "ui/bus/FileManager.h"
#include "ui/queue/StatusQueueModel.h"
#include "ui_StatusQueue.h"

#include <QClipboard>
#include <QHideEvent>
#include <QMenu>
#include <QShortcut>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int milliseconds = 50; // 20 drawings a second
const QString placeName = u"queue"_s;

/// The file that the task works on: the first of its tool's arguments that is a file's full path and bears the row's
/// name; none where no argument does.
QString sourceOf(const ZOLTTask& task)
{
    const auto* const toolTask = dynamic_cast<const ZOLTAsyncNSTask*>(&task);
    if (!toolTask) return QString();
    const QString ending = u'/' + task.title();
    for (const QString& argument : toolTask->arguments()) {
        if (argument.endsWith(ending)) return argument;
    }
    return QString();
}

} // namespace

StatusQueueWindow::StatusQueueWindow(ZOLTTaskQueue& queue)
    : form_(std::make_unique<Ui::StatusQueue>()), queue_(queue), table_(queue.tableView()),
      model_(new StatusQueueModel(queue, this))
{
    form_->setupUi(this);
    form_->tableView->setModel(model_);
    form_->cancelAllButton->setIcon(symbolIcon(u"process-stop"_s));
    restorePlace(*this, placeName);
    timer_.setInterval(milliseconds);
    connect(&timer_, &QTimer::timeout, this, [this] { guarded("queue panel", [this] { refresh(); }); });
    connect(form_->cancelAllButton, &QPushButton::clicked, this,
            [this] { guarded("cancel all", [this] { cancelAll(); }); });
    connect(form_->tableView, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { showMenu(place); });
    connect(new QShortcut(QKeySequence::Copy, form_->tableView), &QShortcut::activated, this,
            [this] { copySelected(); });
    connect(new QShortcut(QKeySequence(u"Ctrl+W"_s), this), &QShortcut::activated, this, &QWidget::close);
    table_->setObserver(this);
    (new WindowBinding(*this, queue.panel()))->setComingUp([this] { placeBesideActive(*this); });
    refreshTexts();
}

StatusQueueWindow::~StatusQueueWindow()
{
    table_->setObserver(nullptr);
}

void StatusQueueWindow::controlChanged(Control&)
{
    if (!timer_.isActive()) timer_.start();
}

void StatusQueueWindow::refresh()
{
    const bool atWork = queue_.taskCount() > 0;
    if (atWork && !atWork_.isValid()) atWork_.start();
    const bool rowsChanged = model_->refresh();
    if (isVisible()) {
        followRunningRow();
        if (const QString now = form_->tableView->visibleText(); rowsChanged || now != lastVisible_) {
            lastVisible_ = now;
            ++refreshes_;
            form_->tableView->viewport()->update();
        }
    }
    refreshTexts();
    if (atWork) return;
    atWork_.invalidate();
    timer_.stop();
}

void StatusQueueWindow::refreshTexts()
{
    const int open = queue_.taskCount();
    const QString title = open > 0 ? u"Queue: %1 to go"_s.arg(open) : u"Queue"_s;
    if (title != windowTitle()) setWindowTitle(title);
    QString pace = u"%1 at a time"_s.arg(queue_.maxThreads());
    if (atWork_.isValid()) pace += u", "_s + clockText(atWork_.elapsed());
    form_->paceLabel->setText(pace); // does nothing where the text stands already
    form_->cancelAllButton->setEnabled(open > 0);
}

void StatusQueueWindow::followRunningRow()
{
    const int row = table_->rowToShow();
    if (row == shownRow_) return;
    shownRow_ = row;
    // A row past the end is passed over: the number is kept over sweeps.
    if (row >= 0 && row < model_->rowCount()) form_->tableView->scrollTo(model_->index(row, 0));
}

std::shared_ptr<ZOLTTask> StatusQueueWindow::taskOf(int row) const
{
    const auto rows = queue_.panelArray();
    return row >= 0 && std::size_t(row) < rows.size() ? rows[std::size_t(row)] : nullptr;
}

void StatusQueueWindow::cancelAll()
{
    queue_.endEverything([this] { queue_.cancelAllTasks(nullptr); });
}

void StatusQueueWindow::showMenu(const QPoint& place)
{
    const auto task = taskOf(form_->tableView->indexAt(place).row());
    const auto report = task ? task->results() : nullptr;
    const QString source = task ? sourceOf(*task) : QString();
    QMenu menu(this);
    menu.addAction(u"Remove All &Errors"_s, this,
                   [this] { guarded("remove errors", [this] { queue_.removeAllErrors(nullptr); }); });
    menu.addSeparator();
    menu.addAction(u"Show &Output"_s, this, [&] { guarded("show output", [&] { showOutput(*task); }); })
        ->setEnabled(report != nullptr);
    menu.addAction(u"Show in &Folder"_s, this, [&] { showInFolder(source); })->setEnabled(!source.isEmpty());
    menu.addAction(u"&Copy Text"_s, this, [this] { copySelected(); })->setEnabled(task != nullptr);
    menu.exec(form_->tableView->viewport()->mapToGlobal(place));
}

void StatusQueueWindow::showOutput(const ZOLTTask& task)
{
    const auto report = task.results();
    if (!report) return; // its end came while the menu was open
    const QString text = report->results();
    for (const auto& shown : queue_.outputWindows()) {
        if (shown->window()->title() != task.title() || shown->textField()->string() != text) continue;
        if (!WindowBinding::widgetOf(*shown->window())) shown->loadWindow();
        return shown->showWindow();
    }
    queue_.showOutputWindowTitle(text, task.title());
}

void StatusQueueWindow::copySelected() const
{
    QModelIndexList rows = form_->tableView->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList texts;
    for (const QModelIndex& row : rows)
        texts += row.data(Qt::DisplayRole).toString();
    QApplication::clipboard()->setText(texts.join(u'\n'));
}

void StatusQueueWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) keepPlace(*this, placeName);
}

void StatusQueueWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) lastVisible_.clear();
}

} // namespace zolt
