#include "ui/runs/RunDesk.h"

#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/MainQueue.h"
#include "shell/BaseTab.h"
#include "shell/ZOLTController.h"
#include "ui/MainWindow.h"
#include "ui/QtInterfaces.h"
#include "ui/ViewChoices.h"
#include "ui/queue/QueueCommands.h"
#include "ui/reports/ReportPane.h"
#include "ui/runs/RunFoot.h"
#include "ui/runs/RunTexts.h"

#include <QAction>
#include <QMap>
#include <QPointer>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Those of the files that are not in the tab's list.
QStringList newTo(const BaseTab& tab, const QStringList& files)
{
    const QStringList listed = tab.fileNames().copy();
    const QSet<QString> there(listed.begin(), listed.end());
    QStringList fresh = files;
    fresh.removeIf([&](const QString& file) { return there.contains(file); });
    fresh.removeDuplicates();
    return fresh;
}

int indexOf(const TabView& tabs, const QString& label)
{
    for (std::size_t index = 0; index < tabs.items().size(); ++index) {
        if (tabs.items()[index]->label() == label) return int(index);
    }
    return -1;
}

} // namespace

RunDesk::RunDesk(RunRecord& record, ZOLTController& controller, MainWindow& window, QtInterfaces& interfaces)
    : record_(record), controller_(controller), window_(window), interfaces_(interfaces),
      history_(std::make_unique<HistoryWindow>(record, [this](const Run& run) { retry(run); }))
{
    record_.addListener(this);
    window_.runFoot().setRecord(&record_, {.showQueue = [this] { queueCommands::showPanel(*controller_.taskQueue()); },
                                           .showRun = [this] { showLastRun(); },
                                           .retryFailed = [this] { retry(*record_.current()); }});
    interfaces_.setGathered([this](bool first) { gather(first); });
    wireMenus(interfaces);
}

RunDesk::~RunDesk()
{
    interfaces_.setGathered({});
    window_.runFoot().setRecord(nullptr);
    record_.removeListener(this);
}

void RunDesk::wireMenus(QtInterfaces& interfaces)
{
    const auto wire = [this](const QString& name, std::function<void()> work) {
        auto* const action = window_.findChild<QAction*>(name);
        QObject::connect(action, &QAction::triggered, history_.get(), [work] { guarded("menu", work); });
    };
    wire(u"historyAction"_s, [this] { history_->showLatest(RunFilter::All); });
    wire(u"closeReportsAction"_s, [&interfaces] { interfaces.closeReports(); });
    wire(u"saveReportsAction"_s, [this] { saveReports(); });
    wire(u"retryAction"_s, [this] {
        if (record_.current()) retry(*record_.current());
    });
}

void RunDesk::runEnded(const Run&)
{
    interfaces_.countReportsAnew();
}

void RunDesk::gather(bool first)
{
    // Behind what the record has still to tell: the report may be of a run that it has not begun yet.
    postToMain([history = QPointer(history_.get()), first] {
        if (history) history->reportCame(first);
    });
}

void RunDesk::retry(const Run& run)
{
    QMap<QString, QStringList> files;
    for (const RunRow& row : run.rows) {
        if (row.failed()) files[row.origin.name] += row.files();
    }
    for (auto each = files.begin(); each != files.end(); ++each) {
        BaseTab* const tab = controller_.tabOfLabel(each.key());
        if (!tab) continue;
        tab->addFiles(newTo(*tab, each.value()));
        window_.selectTab(indexOf(*controller_.tabView, each.key()));
    }
    if (!files.isEmpty()) window_.present();
}

void RunDesk::showReports()
{
    if (viewChoices::gathersReports() || !interfaces_.presentReports()) showLastRun();
}

void RunDesk::showLastRun()
{
    const Run* const run = record_.current();
    const bool reports = run && std::any_of(run->rows.begin(), run->rows.end(),
                                            [](const RunRow& row) { return row.report.has_value(); });
    history_->showLatest(reports ? RunFilter::Reports : RunFilter::All);
}

void RunDesk::saveReports()
{
    const QString reports = record_.current() ? reportsOf(*record_.current()) : QString();
    if (reports.isEmpty())
        panels().runAlert(u"The last run has no reports"_s, u"Only failures and verifications leave one."_s, u"OK"_s);
    else
        saveText(u"Save all reports"_s, u"reports.txt"_s, reports);
}

} // namespace zolt
