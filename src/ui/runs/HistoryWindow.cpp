#include "ui/runs/HistoryWindow.h"

#include "engine/RunRecord.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "ui/NameDelegate.h"
#include "ui/TextSides.h"
#include "ui/WindowPlaces.h"
#include "ui/runs/RunTexts.h"
#include "ui_HistoryWindow.h"

#include <QHeaderView>
#include <QShortcut>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int milliseconds = 250;
const QString placeName = u"history"_s;

} // namespace

HistoryWindow::HistoryWindow(RunRecord& record, std::function<void(const Run&)> retry)
    : form_(std::make_unique<Ui::HistoryWindow>()), record_(record), retry_(std::move(retry)),
      model_(new RunRowsModel(this))
{
    form_->setupUi(this);
    form_->rowsView->setModel(model_);
    form_->rowsView->setItemDelegate(new NameDelegate(form_->rowsView));
    readyColumns();
    form_->splitter->setSizes({360, 500});
    form_->splitter->setStretchFactor(0, 2); // a narrow window takes from both
    form_->splitter->setStretchFactor(1, 3);
    keepTextsOnTheirSide(*this);
    form_->pane->setFont({u"Courier"_s, 10.0});
    restorePlace(*this, placeName);
    fitToScreen(*this);
    timer_.setInterval(milliseconds);
    wire();
}

HistoryWindow::~HistoryWindow() = default;

void HistoryWindow::readyColumns()
{
    constexpr int gap = 16; // units beside a text
    QHeaderView& header = *form_->rowsView->header();
    const QFontMetrics letters(header.font());
    header.resizeSection(RunRowsModel::NameColumn, 200);
    header.resizeSection(RunRowsModel::OutcomeColumn, letters.horizontalAdvance(u"complete"_s) + gap);
    header.resizeSection(RunRowsModel::TimeColumn, letters.horizontalAdvance(u"0:00:00"_s) + gap);
}

void HistoryWindow::wire()
{
    connect(&timer_, &QTimer::timeout, this, [this] { guarded("history", [this] { refresh(); }); });
    connect(form_->runBox, &QComboBox::currentIndexChanged, this, [this] { showRun(); });
    connect(form_->filterBox, &QComboBox::currentIndexChanged, this, [this] { showRun(); });
    connect(form_->rowsView->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { showReport(); });
    connect(form_->retryButton, &QPushButton::clicked, this, [this] {
        guarded("retry", [this] {
            if (run()) retry_(*run());
        });
    });
    connect(form_->exportButton, &QPushButton::clicked, this, [this] { guarded("export", [this] { exportRun(); }); });
    const auto key = [this](const QString& keys, auto work) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, work);
    };
    key(u"Ctrl+F"_s, [this] { form_->pane->openFind(); });
    key(u"F3"_s, [this] { form_->pane->findNext(); });
    key(u"Ctrl+S"_s, [this] { guarded("save report", [this] { form_->pane->saveAs(); }); });
    key(u"Ctrl+W"_s, [this] { close(); });
    key(u"Escape"_s, [this] {
        if (!form_->pane->closeFind()) close();
    });
}

QString HistoryWindow::title(const Run& run) const
{
    const bool atWork = record_.isRunning() && &run == record_.current();
    return run.begunAt.toString(u"HH:mm"_s) + u", "_s + (atWork ? record_.progressInWords() : shortWords(run));
}

const Run* HistoryWindow::run() const
{
    const auto& runs = record_.runs();
    const qsizetype index = qsizetype(runs.size()) - 1 - form_->runBox->currentIndex(); // the newest stands first
    return form_->runBox->currentIndex() >= 0 && index >= 0 ? runs[std::size_t(index)].get() : nullptr;
}

void HistoryWindow::listRuns()
{
    const auto& runs = record_.runs();
    const int chosen = std::max(form_->runBox->currentIndex(), 0) + int(runs.size()) - form_->runBox->count();
    const bool grew = form_->runBox->count() != int(runs.size());
    const QSignalBlocker quiet(form_->runBox);
    while (form_->runBox->count() < int(runs.size()))
        form_->runBox->insertItem(0, QString());
    for (int index = 0; index < int(runs.size()); ++index)
        form_->runBox->setItemText(
            index, inReadingOrder(title(*runs[runs.size() - 1 - std::size_t(index)]), layoutDirection()));
    if (grew) form_->runBox->setCurrentIndex(std::min(chosen, form_->runBox->count() - 1));
}

void HistoryWindow::refresh()
{
    listRuns();
    showRun();
    if (!record_.isRunning() || !isVisible()) timer_.stop();
}

void HistoryWindow::showRun()
{
    const int current = form_->rowsView->currentIndex().row();
    model_->show(run(), RunFilter(form_->filterBox->currentIndex()));
    const bool any = model_->rowCount() > 0;
    if (!form_->rowsView->currentIndex().isValid() && any)
        form_->rowsView->setCurrentIndex(model_->index(std::clamp(current, 0, model_->rowCount() - 1), 0));
    if (!any) form_->pane->setReport(QString(), QString());
    const Run* const shown = run();
    form_->retryButton->setEnabled(shown && shown->failedRows() > 0);
    form_->exportButton->setEnabled(shown);
    setWindowTitle(shown ? u"History: "_s + title(*shown) : u"History"_s);
    showReport();
}

void HistoryWindow::showReport()
{
    const RunRow* const row = model_->row(form_->rowsView->currentIndex().row());
    const QString report = row ? row->report.value_or(QString()) : QString();
    if (row == std::exchange(shown_, row) && report == form_->pane->report()) return; // its reader has scrolled in it
    form_->pane->setReport(row ? row->title : QString(), report,
                           row ? ReportFacts{row->source, row->notes} : ReportFacts());
}

void HistoryWindow::chooseLatest(RunFilter filter)
{
    form_->filterBox->setCurrentIndex(int(filter));
    listRuns();
    form_->runBox->setCurrentIndex(form_->runBox->count() > 0 ? 0 : -1);
    showRun();
}

void HistoryWindow::showLatest(RunFilter filter)
{
    chooseLatest(filter);
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    bringToFront(*this);
    timer_.start();
}

void HistoryWindow::reportCame(bool first)
{
    if (first || !isVisible()) {
        chooseLatest(RunFilter::Reports);
        setAttribute(Qt::WA_ShowWithoutActivating);
        show();
    }
    if (!timer_.isActive()) timer_.start();
}

void HistoryWindow::exportRun()
{
    if (!run()) return;
    const QString name = u"run-"_s + run()->begunAt.toString(u"yyyyMMdd-HHmm"_s) + u".txt"_s;
    SavePanelRequest request;
    request.title = u"Export run"_s;
    request.fileName = name;
    const auto path = panels().savePanel(request);
    if (!path) return;
    const bool table = path->endsWith(u".csv"_s, Qt::CaseInsensitive);
    saveTextTo(*path, table ? runAsCsv(*run()) : runAsText(*run()));
}

void HistoryWindow::closeEvent(QCloseEvent* event)
{
    timer_.stop();
    keepPlace(*this, placeName);
    QWidget::closeEvent(event);
}

} // namespace zolt
