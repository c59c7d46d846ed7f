#include "ui/queue/StatusQueueWindow.h"

#include "engine/RunRecord.h"
#include "engine/ZOLTTask.h"
#include "platform/errors/Exceptions.h"
#include "platform/text/Counts.h"
#include "shell/PreferencesController.h"
#include "ui/SelectedRows.h"
#include "ui/Symbols.h"
#include "ui/TextSides.h"
#include "ui/ViewChoices.h"
#include "ui/WindowPlaces.h"
#include "ui/binding/WindowBinding.h"
#include "ui/bus/FileManager.h"
#include "ui/queue/QueueCommands.h"
#include "ui/queue/StatusQueueModel.h"
#include "ui_StatusQueue.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QHideEvent>
#include <QMenu>
#include <QShortcut>

namespace zolt {

using namespace Qt::StringLiterals;
using queueCommands::waits;

namespace {

constexpr int milliseconds = 50;      // 20 drawings a second
constexpr int headMilliseconds = 250; // numbers that change faster cannot be read
const QString placeName = u"queue"_s;

/// A bar paints itself at once when it is told a value, and with it all that waits to be painted, which would come
/// twice then: this leaves it waiting with the rest.
void setUnpainted(QProgressBar& bar, int value)
{
    if (bar.value() == value) return;
    bar.setUpdatesEnabled(false);
    bar.setValue(value);
    bar.setUpdatesEnabled(true);
}

} // namespace

StatusQueueWindow::StatusQueueWindow(ZOLTTaskQueue& queue)
    : form_(std::make_unique<Ui::StatusQueue>()), queue_(queue), table_(queue.tableView()),
      model_(new StatusQueueModel(queue, this))
{
    form_->setupUi(this);
    form_->tableView->setModel(model_);
    keepTextsOnTheirSide(*this);
    form_->cancelAllButton->setIcon(symbolIcon(u"process-stop"_s));
    restorePlace(*this, placeName);
    fitToScreen(*this);
    timer_.setInterval(milliseconds);
    wireButtons();
    connect(&timer_, &QTimer::timeout, this, [this] { guarded("queue panel", [this] { refresh(); }); });
    connect(form_->tableView, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { showMenu(place); });
    connect(new QShortcut(QKeySequence::Copy, form_->tableView), &QShortcut::activated, this,
            [this] { copySelected(); });
    for (const QString& key : {u"Ctrl+W"_s, u"Escape"_s})
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, &QWidget::close);
    table_->setObserver(this);
    auto* const binding = new WindowBinding(*this, queue.panel());
    binding->setComingUp([this] { placeBesideActive(*this); });
    binding->setKeepsInFront(viewChoices::keepsQueueInFront);
    binding->setComesBack([this] { return comesBack(); });
    refreshHead();
    refreshButtons();
}

void StatusQueueWindow::wireButtons()
{
    connect(form_->pauseButton, &QPushButton::clicked, this,
            [this](bool held) { guarded("pause", [&] { queue_.setHeld(held); }); });
    connect(form_->cancelAllButton, &QPushButton::clicked, this,
            [this] { guarded("cancel all", [this] { queueCommands::cancelAll(queue_); }); });
    form_->paceField->setMaximum(std::max(PreferencesController::mostThreads(), queue_.maxThreads()));
    form_->paceField->setValue(queue_.maxThreads());
    connect(form_->paceField, &QSpinBox::valueChanged, this, [this](int tasks) {
        if (tasks != queue_.maxThreads()) guarded("pace", [&] { queueCommands::setPace(tasks); });
    });
    form_->tableView->setRemoveHandler([this] { removeSelected(); });
}

void StatusQueueWindow::setRecord(RunRecord* record)
{
    record_ = record;
    refreshHead();
}

StatusQueueWindow::~StatusQueueWindow()
{
    table_->setObserver(nullptr);
}

void StatusQueueWindow::controlChanged(Control&)
{
    if (timer_.isActive()) return;
    sinceHead_.invalidate();
    timer_.start();
}

void StatusQueueWindow::refresh()
{
    const bool rowsChanged = model_->refresh();
    if (isVisible()) {
        followRunningRow();
        if (const QString now = form_->tableView->visibleText(); rowsChanged || now != lastVisible_) {
            lastVisible_ = now;
            ++refreshes_;
            form_->tableView->viewport()->update();
        }
    }
    const bool ended = queue_.taskCount() == 0 && (!record_ || !record_->isRunning());
    if (ended) timer_.stop();
    refreshButtons();
    if (ended || !sinceHead_.isValid() || sinceHead_.hasExpired(headMilliseconds)) refreshHead();
}

QString StatusQueueWindow::headText() const
{
    if (!record_) return QString();
    if (record_->isRunning()) return (queue_.isHeld() ? u"Paused: "_s : QString()) + record_->progressInWords();
    return record_->current() ? inWords(*record_->current()) : QString();
}

void StatusQueueWindow::refreshHead()
{
    sinceHead_.start();
    const bool open = queue_.taskCount() > 0;
    const QString head = headText();
    const QString title = open && !head.isEmpty() ? u"Queue: "_s + head : u"Queue"_s;
    if (title != windowTitle()) setWindowTitle(title);
    form_->headLabel->setText(head.isEmpty() ? u"Nothing in the queue"_s
                                             : head); // does nothing where it stands already
    const bool anyRun = record_ && record_->current();
    setUnpainted(*form_->totalBar, anyRun ? int(record_->progress() * form_->totalBar->maximum()) : 0);
}

void StatusQueueWindow::refreshButtons()
{
    form_->cancelAllButton->setEnabled(queue_.taskCount() > 0);
    form_->pauseButton->setChecked(queue_.isHeld());
    if (!form_->paceField->hasFocus()) form_->paceField->setValue(queue_.maxThreads());
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
    return queue_.rowTask(row);
}

std::vector<std::shared_ptr<ZOLTTask>> StatusQueueWindow::selectedTasks() const
{
    std::vector<std::shared_ptr<ZOLTTask>> tasks;
    for (const qsizetype row : selectedRows(*form_->tableView)) {
        if (const auto task = taskOf(int(row))) tasks.push_back(task);
    }
    return tasks;
}

void StatusQueueWindow::removeSelected()
{
    guarded("remove from queue", [this] { queueCommands::remove(queue_, selectedTasks()); });
}

void StatusQueueWindow::showMenu(const QPoint& place)
{
    const auto tasks = selectedTasks();
    const auto task = taskOf(form_->tableView->indexAt(place).row());
    const bool waiting = std::any_of(tasks.begin(), tasks.end(), [](const auto& each) { return waits(*each); });
    const bool running = std::any_of(tasks.begin(), tasks.end(),
                                     [](const auto& each) { return each->isActive() && !each->cancelled(); });
    QMenu menu(this);
    menu.addAction(u"&Stop"_s, this, [this] { removeSelected(); })->setEnabled(running && !waiting);
    menu.addAction(u"&Remove from Queue"_s, this, [this] { removeSelected(); })->setEnabled(waiting);
    for (const MenuItem& item : table_->menu()->items)
        menu.addAction(item.title, this, [&item] { guarded("queue menu", item.action); });
    menu.addSeparator();
    menu.addAction(u"Show &Output"_s, this,
                   [&] { guarded("show output", [&] { queueCommands::showReport(queue_, *task); }); })
        ->setEnabled(task && task->results());
    menu.addAction(u"Show in &Folder"_s, this, [&] { showInFolder(task->source()); })
        ->setEnabled(task && !task->source().isEmpty());
    menu.addAction(u"&Copy Text"_s, this, [this] { copySelected(); })->setEnabled(!tasks.empty());
    menu.exec(form_->tableView->viewport()->mapToGlobal(place));
}

void StatusQueueWindow::copySelected() const
{
    QStringList texts;
    for (const qsizetype row : selectedRows(*form_->tableView))
        texts += form_->tableView->model()->index(int(row), 0).data(Qt::DisplayRole).toString();
    QApplication::clipboard()->setText(texts.join(u'\n'));
}

bool StatusQueueWindow::comesBack() const
{
    const bool newRun = !record_ || !record_->isRunning();
    return viewChoices::keepsQueueInFront() || newRun || queue_.numberOfRowsInTableView() > rowsAtClose_;
}

void StatusQueueWindow::closeEvent(QCloseEvent* event)
{
    rowsAtClose_ = queue_.numberOfRowsInTableView();
    QWidget::closeEvent(event);
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
