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

Identity identityOf(const struct stat& facts)
{
    return {facts.st_dev, facts.st_ino};
}

} // namespace

OpenFileMark::OpenFileMark(QFile& file)
{
    struct stat facts = {};
    fstat(file.handle(), &facts);
    identity_ = identityOf(facts);
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
    struct stat facts = {};
    if (stat(QFile::encodeName(path).constData(), &facts) != 0) return false;
    const std::lock_guard guard(registry().mutex);
    return registry().files.contains(identityOf(facts));
}

} // namespace zolt
