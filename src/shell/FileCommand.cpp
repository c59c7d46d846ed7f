#include "shell/FileCommand.h"

#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Panels.h"
#include "shell/BaseTab.h"

namespace zolt {

namespace {

bool confirmDeletion()
{
    return panels().runAlert(
               QStringLiteral("You have chosen to delete the original files.  Are you sure you want to continue?"),
               QString(), QStringLiteral("Yes"), QStringLiteral("No")) == alertReply::defaultButton;
}

/// @throws InvalidArgumentException where the task cannot delete its source; nobody else will let go of it then
void setDeletion(ZOLTTask& task)
{
    try {
        task.setDeleteOriginal(true);
    } catch (...) {
        task.setResults(nullptr); // a task that is never queued has no queue to break its ring with its results
        throw;
    }
}

} // namespace

FileCommand::FileCommand(const BaseTab& tab, const Choices& choices, QString folder)
    : tab_(tab), choices_(choices), folder_(std::move(folder)), files_(tab.fileNames().copy())
{
}

std::optional<FileCommand> FileCommand::start(const BaseTab& tab, const Choices& choices)
{
    if (tab.fileNames().isEmpty() || tab.isTakingIn()) return std::nullopt;
    if (choices.deletes && !confirmDeletion()) return std::nullopt;
    if (choices.besideSources) return FileCommand(tab, choices, QString());
    const OptionalText folder = tab.chooseOutputFolder();
    return folder ? std::optional(FileCommand(tab, choices, *folder)) : std::nullopt;
}

QString FileCommand::folderFor(const QString& file) const
{
    return choices_.besideSources ? path::deletingLastComponent(file) : folder_;
}

void FileCommand::queue(const std::shared_ptr<ZOLTTask>& task) const
{
    if (!task) return;
    if (choices_.deletes) setDeletion(*task); // first: queueing it may start it
    tab_.taskQueue()->addTask(task);
}

} // namespace zolt
