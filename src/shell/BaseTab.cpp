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

namespace zolt {

BaseTab::BaseTab() : pathToCommandLineTools_(toolsDirectory())
{
    tableView->setDataSource(this);
}

BaseTab::~BaseTab()
{
    tableView->setDataSource(nullptr);
}

void BaseTab::awakeFromNib()
{
    tableView->registerForFileDrops();
}

void BaseTab::add(const QStringList& paths)
{
    fileNames_->addSorted(paths);
    lastAdded_ = paths;
    tableView->reloadData();
    filesAdded();
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

void BaseTab::addFiles(const QStringList& paths)
{
    QSet<QString> badExtensions;
    QStringList added;
    for (const QString& path : paths) {
        if (isDirectory(path))
            added += getFilesFileManagerBadExtensions(path, badExtensions);
        else if (isValid(path))
            added.append(path); // kept: a system file given by itself is taken like any other
        else
            badExtensions.insert(path::extension(path));
    }
    add(added);
    if (badExtensions.isEmpty()) return;
    // The whole list is looked at: a refused drop on a list that already holds files gets the second text.
    panels().runAlert(fileNames_->isEmpty()
                          ? QStringLiteral("File types not supported by this tab")
                          : QStringLiteral("Some files types were not recognized by this tab and were skipped"),
                      QString(), QStringLiteral("OK"));
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
