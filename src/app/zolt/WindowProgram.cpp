#include "app/zolt/WindowProgram.h"

#include "app/Program.h"
#include "app/zolt/Pages.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/Product.h"
#include "platform/controls/Button.h"
#include "platform/desktop/Panels.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "shell/DockMenuController.h"
#include "shell/ZOLTController.h"
#include "ui/bus/RunOnBus.h"
#include "ui/queue/StatusQueueWindow.h"
#include "ui/runs/RunDesk.h"

#include <QApplication>
#include <QProgressDialog>
#include <QTimer>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Says why the program is still there. Nothing can be pressed: a tool that is stopped halfway leaves half a file.
std::unique_ptr<QProgressDialog> waitingNote()
{
    auto note = std::make_unique<QProgressDialog>(u"Waiting for the running tools to end…"_s, QString(), 0, 0);
    note->setWindowTitle(QLatin1String(product::name));
    note->setObjectName(u"waitingNote"_s);
    note->setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    note->setMinimumDuration(0);
    note->show();
    return note;
}

/// What a person has to know of the settings' file; later on the preferences tell.
void tellOfSettings()
{
    const QString complaint = UserDefaults::standard().complaint();
    if (complaint.isEmpty()) return;
    guarded("settings", [&] { panels().runAlert(QStringLiteral("Settings"), complaint, QStringLiteral("OK")); });
}

} // namespace

WindowProgram::WindowProgram()
{
    installPanels(&panels_);
    installDesktop(&desktop_);
    program_ = std::make_unique<Program>();
    program_->controller().setWalksInBackground(true);
    panels_.setFolderOfWork([this] { return program_->controller().folderInFront(); });
    mainWindow_ = std::make_unique<MainWindow>(program_->controller(), pagesOf(*program_));
    desktop_.setMainWindow(mainWindow_.get());
    onBus_ = std::make_unique<RunOnBus>(program_->record(), [] { return QApplication::activeWindow() != nullptr; });
    runDesk_ = std::make_unique<RunDesk>(program_->record(), program_->controller(), *mainWindow_, interfaces_);
    onBus_->setShowReport([this] { runDesk_->showReports(); });
    if (auto* const panel = interfaces_.window<StatusQueueWindow>()) panel->setRecord(&program_->record());
    // From the event loop itself: ending waits, and whoever asked for it is still on his way out.
    desktop_.setTerminateHandler([this] { QTimer::singleShot(0, mainWindow_.get(), [this] { terminate(); }); });
}

WindowProgram::~WindowProgram()
{
    onBus_.reset();
    runDesk_.reset();
    mainWindow_.reset();
    interfaces_.closeAll();
    program_.reset();
    installDesktop(nullptr);
    installPanels(nullptr);
}

void WindowProgram::present()
{
    if (phase_ == Phase::Ending) return handOn({});
    mainWindow_->present();
    if (!std::exchange(toldOfSettings_, true)) QTimer::singleShot(0, mainWindow_.get(), tellOfSettings);
}

void WindowProgram::openFiles(const QStringList& paths)
{
    if (paths.isEmpty()) return;
    if (phase_ == Phase::Ending) return handOn(paths);
    program_->controller().applicationOpenFiles(paths);
}

void WindowProgram::handOn(const QStringList& paths)
{
    if (startAnew_) startAnew_(paths);
}

void WindowProgram::selectTab(int index)
{
    if (phase_ == Phase::Ending) return;
    const DockMenuController menu([this](Sender sender) { program_->controller().selectTab(sender); });
    const auto entry = std::make_shared<Button>();
    entry->setTag(index);
    menu.selectTab(entry.get());
}

void WindowProgram::terminate()
{
    if (phase_ != Phase::Running) return;
    phase_ = Phase::Asking;
    const auto reply = program_->controller().applicationShouldTerminate();
    phase_ = reply == ZOLTController::TerminateReply::Now ? Phase::Ending : Phase::Running;
    if (phase_ == Phase::Ending)
        end();
    else
        mainWindow_->present(); // it may have been closed by then
}

void WindowProgram::end()
{
    if (ending_) ending_();
    mainWindow_->setEnding(true);
    mainWindow_->hide();
    // A task that is cancelled early reports at once, while its thread still runs the tool.
    const bool busy = program_->controller().taskQueue()->taskCount() > 0 || detachedThreadCount() > 0;
    const auto note = busy ? waitingNote() : nullptr;
    program_->finish();
    runDesk_.reset();
    if (auto* const panel = interfaces_.window<StatusQueueWindow>()) panel->setRecord(nullptr);
    interfaces_.closeAll();
    if (ended_) ended_();
}

} // namespace zolt
