#include "shell/BaseTab.h"

#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Panels.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "platform/files/FileWalk.h"
#include "platform/files/Files.h"
#include "shell/SystemFiles.h"
#include "shell/ZOLTController.h"

#include <QEventLoop>

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

void BaseTab::announce(const QStringList& added)
{
    lastAdded_ = added;
    filesAdded();
}

void BaseTab::add(const QStringList& paths)
{
    list(paths);
    announce(paths);
}

void BaseTab::addFile(const QString& path)
{
    add({path});
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
        announce(all.files);
        if (tells) tellRefused(all.refused);
    };
    const std::atomic<bool> stop = false;
    if (goesBeside(paths))
        return intake_.start(
            paths, accepts, [this](const auto& files) { list(files); }, ended);
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
    QStringList kept;
    for (const qsizetype row : rows)
        kept += fileNames_->at(row);
    removeRows(rows);
    const int open = taskQueue() ? taskQueue()->taskCount() : 0;
    if (!fileNames_->isEmpty()) executeCommand(nullptr);
    comingBack_ += kept;
    // A task that was started on the list itself, not on a copy, is not to meet them there.
    const bool inUse = !fileNames_->isEmpty() && taskQueue() && taskQueue()->taskCount() > open;
    if (!inUse) bringBack();
}

void BaseTab::bringBack()
{
    const QStringList files = std::exchange(comingBack_, {});
    if (!files.isEmpty()) add(files);
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
