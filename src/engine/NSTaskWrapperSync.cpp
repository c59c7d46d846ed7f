#include "engine/NSTaskWrapperSync.h"

#include "platform/process/ChildProcess.h"

namespace zolt {

NSTaskWrapperSync::NSTaskWrapperSync(const QString& launchPath, const QStringList& arguments)
    : environment_(childEnvironment()), arguments_(arguments), launchPath_(launchPath), totalOutput_(QString())
{
}

OptionalText NSTaskWrapperSync::runTask()
{
    setUnbufferedIO(environment_);
    const auto pipe = std::make_shared<Pipe>();
    ChildProcess process;
    process.setLaunchPath(launchPath_);
    process.setArguments(arguments_);
    process.setEnvironment(environment_);
    process.setCurrentDirectoryPath(currentDirectoryPath_);
    process.setStandardOutputAndError(pipe);
    process.launch();
    totalOutput_ = decodeUtf8(pipe->fileHandleForReading()->readDataToEndOfFile());
    return totalOutput_;
}

} // namespace zolt
