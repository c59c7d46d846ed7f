#include "platform/audio/OpenFiles.h"

#include <QFile>

#include <set>
#include <sys/stat.h>

namespace zolt {

namespace {

using Identity = std::pair<uint64_t, uint64_t>;

struct Registry
{
    std::mutex mutex;
    std::multiset<Identity> files;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

std::optional<Identity> identityOf(const QString& path)
{
    struct stat facts = {};
    if (stat(QFile::encodeName(path).constData(), &facts) != 0) return std::nullopt;
    return Identity(facts.st_dev, facts.st_ino);
}

} // namespace

OpenFileMark::OpenFileMark(const QString& path) : identity_(identityOf(path).value_or(Identity()))
{
    const std::lock_guard guard(registry().mutex);
    registry().files.insert(identity_);
}

OpenFileMark::~OpenFileMark()
{
    const std::lock_guard guard(registry().mutex);
    registry().files.erase(registry().files.find(identity_));
}

bool OpenFileMark::isMarked(const QString& path)
{
    const auto identity = identityOf(path);
    const std::lock_guard guard(registry().mutex);
    return identity && registry().files.contains(*identity);
}

} // namespace zolt
