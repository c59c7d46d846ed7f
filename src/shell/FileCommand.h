// The start of a command that makes a task for each file: what is asked first, and where outputs go.
#pragma once

#include "platform/text/Text.h"

#include <QStringList>

#include <memory>
#include <optional>

namespace zolt {

class BaseTab;
class ZOLTTask;

/// Main thread; not kept beyond the command.
class FileCommand
{
public:
    struct Choices
    {
        bool besideSources = false; ///< otherwise one folder serves all files
        bool deletes = false;       ///< the sources go after success, which is confirmed first
    };

    /// Asks, in this order: nothing with an empty list or while files come in, whether the originals are really to be
    /// deleted, which folder to write to. @return nothing where the command is not to go on; the list then stays as it
    /// is
    static std::optional<FileCommand> start(const BaseTab& tab, const Choices& choices);

    /// A copy of the list, in its order.
    const QStringList& files() const { return files_; }
    QString folderFor(const QString& file) const;
    /// Hands the task over, told beforehand to delete its source if that was chosen; no task is passed over.
    void queue(const std::shared_ptr<ZOLTTask>& task) const;

private:
    FileCommand(const BaseTab& tab, const Choices& choices, QString folder);

    const BaseTab& tab_;
    const Choices choices_;
    const QString folder_;
    const QStringList files_;
};

} // namespace zolt
