#include "platform/audio/OpenFiles.h"

#include "platform/files/FileNames.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt {

struct OpenFileMark::Registry
{
    std::mutex mutex;
    std::multiset<Identity> files;
};

OpenFileMark::Registry& OpenFileMark::registry()
{
    static Registry instance;
    return instance;
}

OpenFileMark::OpenFileMark(const QString& path)
{
    struct stat facts = {};
    if (stat(bytesOfName(path).constData(), &facts) == 0) identity_ = {facts.st_dev, facts.st_ino};
    const std::lock_guard guard(registry().mutex);
    registry().files.insert(identity_);
}

OpenFileMark::OpenFileMark(const Identity& identity, const std::lock_guard<std::mutex>&) : identity_(identity)
{
    registry().files.insert(identity_);
}

OpenFileMark::~OpenFileMark()
{
    const std::lock_guard guard(registry().mutex);
    registry().files.erase(registry().files.find(identity_));
}

AudioStatus OpenFileMark::claim(const QString& path, std::unique_ptr<OpenFileMark>& mark)
{
    const auto name = bytesOfName(path);
    struct stat facts = {};
    const bool made = stat(name.constData(), &facts) != 0;
    const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666);
    if (file < 0) return audioStatusFromErrno(errno);
    const bool known = fstat(file, &facts) == 0;
    close(file);
    if (!known) return audioStatus::InputOutput;
    const Identity identity(facts.st_dev, facts.st_ino);
    const std::lock_guard guard(registry().mutex);
    if (registry().files.contains(identity)) return audioStatus::FileInUse;
    mark.reset(new OpenFileMark(identity, guard));
    mark->made_ = made;
    return audioStatus::Ok;
}

} // namespace zolt
