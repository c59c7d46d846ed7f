// A tool's whole text in one call; no task, no row, no exit status.
#pragma once

#include "platform/process/Environment.h"
#include "platform/text/Text.h"

#include <QStringList>

namespace zolt {

/// The calling thread, whichever it is, blocks for the whole run. The text alone tells how it went: no status is read.
class NSTaskWrapperSync
{
public:
    /// @param launchPath  full path of the tool
    /// @param arguments   the argument vector, without the tool's name
    static NSTaskWrapperSync initWithLaunchPathArguments(const QString& launchPath, const QStringList& arguments)
    {
        return {launchPath, arguments};
    }
    NSTaskWrapperSync(const QString& launchPath, const QStringList& arguments);

    /// PATH of the child becomes itself, ":" and the text.
    void appendToPATH(const QString& directory) { appendDirectoryToPath(environment_, directory); }
    /// Working directory of the child.
    void setDirectory(const QString& directory) { currentDirectoryPath_ = directory; }
    /// The child's environment, for callers that add variables before running.
    Environment& environment() { return environment_; }

    /// Runs the tool until it closes its output.
    /// @return both streams as they came; absent if they are not valid UTF-8
    /// @throws PlatformException if the tool cannot be started
    OptionalText runTask();
    /// What runTask returned last; empty before.
    const OptionalText& output() const { return totalOutput_; }

private:
    Environment environment_;
    QString currentDirectoryPath_;
    QStringList arguments_;
    QString launchPath_;
    OptionalText totalOutput_;
};

} // namespace zolt
