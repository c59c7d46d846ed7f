#include "engine/NSTaskWrapperSync.h"

#include "platform/process/ChildProcess.h"

namespace zolt {

NSTaskWrapperSync::NSTaskWrapperSync(const QString& launchPath, const QStringList& arguments)
    : environment_(childEnvironment()), arguments_(arguments), launchPath_(launchPath), totalOutput_(QString())
{
}

OptionalText NSTaskWrapperSync::runTask()
{
    const auto process = ChildProcess::withPipe(launchPath_, arguments_, environment_, currentDirectoryPath_);
    process->launch();
    totalOutput_ = decodeUtf8(process->standardOutput()->fileHandleForReading()->readDataToEndOfFile());
    return totalOutput_;
}

} // namespace zolt
