#include "shell/BaseTab.h"

#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Panels.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "platform/files/FileWalk.h"
#include "platform/files/Files.h"
#include "shell/SystemFiles.h"
#include "shell/Wording.h"
#include "shell/ZOLTController.h"

#include <QEventLoop>
#include <QScopeGuard>

namespace zolt {

namespace {

constexpr qsizetype shortList = 64; // files that are judged at once, without a thread of their own

} // namespace

BaseTab::BaseTab() : pathToCommandLineTools_(toolsDirectory())
{
    tableView->setDataSource(this);
}

BaseTab::~BaseTab()
{
    intake_.stop(); // it asks this object
    tableView->setDataSource(nullptr);
}

void BaseTab::awakeFromNib()
{
    tableView->registerForFileDrops();
}

void BaseTab::list(const QStringList& paths)
{
    fileNames_->addSorted(paths);
    tableView->reloadData();
}

void BaseTab::addFile(const QString& path)
{
    list({path});
    filesAdded();
}

void BaseTab::addButtonClick(Sender)
{
    OpenPanelRequest request;
    request.title = QStringLiteral("Choose files for processing");
    request.prompt = QStringLiteral("Add Files");
    request.treatsFilePackagesAsDirectories = true;
    request.canChooseFiles = true;
    request.canChooseDirectories = false;
    request.allowsMultipleSelection = true;
    if (const auto files = panels().openPanel(request)) addFiles(*files);
}

void BaseTab::clearButtonClick(Sender)
{
    intake_.stop(); // what is still on its way is meant too
    clearFiles();
}

void BaseTab::clearFiles()
{
    fileNames_->clear();
    tableView->reloadData();
}

void BaseTab::clearFiles(const std::shared_ptr<FileList>& list)
{
    {
        const std::lock_guard guard(listMutex_); // a command that takes its list back sees all of this or nothing
        const QStringList files = list->copy();
        list->clear();
        if (fileNames_ != list) fileNames_->remove(files);
    }
    tableView->reloadData();
}

void BaseTab::changeDisplayOptions(Sender)
{
    displayRelevantOptions();
}

qsizetype BaseTab::numberOfRowsInTableView() const
{
    return fileNames_->count();
}

QString BaseTab::tableViewObjectValueForTableColumnRow(int, qsizetype row) const
{
    return readableName(path::lastComponent(fileNames_->at(row)));
}

int BaseTab::tableViewValidateDropProposedRowProposedDropOperation(qsizetype, int) const
{
    return copyOperation;
}

bool BaseTab::tableViewAcceptDropRowDropOperation(const QStringList& paths, qsizetype, int)
{
    addFiles(paths);
    return true;
}

void BaseTab::executeCommand(Sender) {}

OptionalText BaseTab::openSavePanelTitle(const QString& fileName, const OptionalText& title) const
{
    SavePanelRequest request;
    request.title = title;
    request.fileName = fileName;
    return panels().savePanel(request);
}

QStringList BaseTab::getFilesFileManagerBadExtensions(const QString& path, QSet<QString>& badExtensions) const
{
    QStringList files;
    walkFiles(path, [&](const QString& file) {
        if (!isValid(file))
            badExtensions.insert(path::extension(file));
        else if (!isSystemFile(file))
            files.append(file);
    });
    return files;
}

bool BaseTab::goesBeside(const QStringList& paths) const
{
    if (!zoltController || !zoltController->walksInBackground()) return false;
    return paths.size() > shortList || std::any_of(paths.begin(), paths.end(), isDirectory);
}

void BaseTab::bringIn(const QStringList& paths, const Acceptance& accepts, bool tells)
{
    const auto ended = [this, tells](const Intake& all) {
        tableView->reloadData(); // whether files come in has changed, if nothing else
        filesAdded();
        if (tells) tellRefused(all.refused);
    };
    const std::atomic<bool> stop = false;
    if (goesBeside(paths)) {
        intake_.start(
            paths, accepts, [this](const auto& files) { list(files); }, ended);
        return tableView->reloadData();
    }
    const Intake all = takeIn(
        paths, accepts, [](const QString&) {}, stop);
    list(all.files);
    ended(all);
}

void BaseTab::addFiles(const QStringList& paths)
{
    bringIn(
        paths, [this](const QString& file) { return isValid(file); }, true);
}

void BaseTab::addFilesAccepted(const QStringList& paths, const Acceptance& accepts)
{
    bringIn(
        paths, [this, accepts](const QString& file) { return accepts(file) && isValid(file); }, false);
}

void BaseTab::tellRefused(const QSet<QString>& extensions) const
{
    if (extensions.isEmpty()) return;
    // The whole list is looked at: a refused drop on a list that already holds files gets the second text.
    panels().runAlert(fileNames_->isEmpty()
                          ? QStringLiteral("File types not supported by this tab")
                          : QStringLiteral("Some files types were not recognized by this tab and were skipped"),
                      QString(), QStringLiteral("OK"));
}

void BaseTab::stopTakingIn()
{
    intake_.stop();
    tableView->reloadData();
}

void BaseTab::waitForFiles() const
{
    QEventLoop loop;
    while (intake_.isRunning())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

WorkPlan BaseTab::workPlan() const
{
    WorkPlan plan;
    plan.files = fileNames_->copy();
    return plan;
}

WorkPlan BaseTab::workPlanWithout(const QList<qsizetype>& rows) const
{
    WorkPlan plan = workPlan();
    if (rows.isEmpty()) return plan;
    const QString before = filesInWords(plan.sources());
    std::erase_if(plan.items, [&](const WorkItem& item) { return rows.contains(item.row); });
    const qsizetype counted = plan.words.indexOf(before);
    if (counted >= 0) plan.words.replace(counted, before.size(), filesInWords(plan.sources()));
    return plan;
}

OptionalText BaseTab::chooseOutputFolder() const
{
    if (destination_) return destination_;
    OpenPanelRequest request;
    request.title = QStringLiteral("Choose output directory");
    request.canChooseFiles = false;
    request.canChooseDirectories = true;
    request.canCreateDirectories = true;
    try {
        const auto chosen = panels().openPanel(request);
        if (!chosen || chosen->isEmpty()) return std::nullopt;
        return chosen->first();
    } catch (const PlatformException&) {
        return std::nullopt;
    }
}

void BaseTab::removeRows(const QList<qsizetype>& rows)
{
    fileNames_->removeAt(rows);
    rowsRemoved(rows);
    tableView->reloadData();
}

void BaseTab::executeCommandWithout(const QList<qsizetype>& rows)
{
    if (isTakingIn()) return; // not all that was meant is there
    if (rows.isEmpty()) return pressAsOrigin();
    const auto rest = std::make_shared<FileList>(fileNames_->copy());
    rest->removeAt(rows);
    if (!rest->isEmpty()) executeCommandOn(rest);
}

void BaseTab::pressAsOrigin()
{
    if (fileNames_->isEmpty()) return;
    const TaskOrigin before = taskQueue() ? taskQueue()->setOrigin({label(), fileNames_->copy()}) : TaskOrigin();
    const auto back = qScopeGuard([&] {
        if (taskQueue()) taskQueue()->setOrigin(before);
    });
    executeCommand(nullptr);
}

/// A task that is started on the list itself gets `rest` with that, which the rows left out never enter.
void BaseTab::executeCommandOn(const std::shared_ptr<FileList>& rest)
{
    const QStringList given = rest->copy();
    const auto whole = exchangeList(rest).list;
    bool took = false;
    {
        const auto back = qScopeGuard([&] { took = takeBack(whole, given); }); // also where the command throws
        pressAsOrigin();
    }
    if (took) filesAdded(); // what the tab shows now is for the files that are left
}

BaseTab::FormerList BaseTab::exchangeList(const std::shared_ptr<FileList>& list)
{
    const std::lock_guard guard(listMutex_);
    tableView->reloadData();
    const QStringList files = fileNames_->copy();
    return {std::exchange(fileNames_, list), files};
}

/// @param given  what the command's list held at first. @return whether the command has taken anything
bool BaseTab::takeBack(const std::shared_ptr<FileList>& whole, const QStringList& given)
{
    const QStringList left = exchangeList(whole).files;
    FileList taken(given), added(left);
    taken.remove(left);
    added.remove(given);
    whole->remove(taken.copy());
    whole->addSorted(added.copy());
    return !taken.isEmpty();
}

std::shared_ptr<FileList> BaseTab::fileList() const
{
    const std::lock_guard guard(listMutex_);
    return fileNames_;
}

ZOLTTaskQueue* BaseTab::taskQueue() const
{
    return zoltController ? zoltController->taskQueue() : nullptr;
}

QString BaseTab::label() const
{
    return tabViewItem ? tabViewItem->label() : QString();
}

bool BaseTab::isValid(const QString& path) const
{
    return zoltController && zoltController->isValidFilePath(label(), path);
}

} // namespace zolt
