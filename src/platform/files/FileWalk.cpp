#include "platform/files/FileWalk.h"

#include "platform/files/FileNames.h"
#include "platform/text/Text.h"

#include <QFile>

#include <memory>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace zolt {

namespace {

struct CloseDirectory
{
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

/// One walk; `inside_` holds the directories between its start and where it is.
class Walk
{
public:
    Walk(const std::function<void(const QString&)>& visit, const std::atomic<bool>* stop) : visit_(visit), stop_(stop)
    {
    }

    void follow(const QString& path, unsigned char kind)
    {
        if (stop_ && *stop_) return;
        struct stat facts;
        // Links and file systems that name no kinds need a closer look.
        const bool unsure = kind == DT_LNK || kind == DT_UNKNOWN || kind == DT_DIR;
        if (!unsure || ::stat(bytesOfName(path).constData(), &facts) != 0 || !S_ISDIR(facts.st_mode))
            return visit_(path);
        if (isInside(facts)) return;
        inside_.push_back({facts.st_dev, facts.st_ino});
        followEntries(path);
        inside_.pop_back();
    }

private:
    struct Identity
    {
        dev_t device;
        ino_t inode;
    };

    bool isInside(const struct stat& facts) const
    {
        return std::any_of(inside_.begin(), inside_.end(), [&facts](const Identity& outer) {
            return outer.device == facts.st_dev && outer.inode == facts.st_ino;
        });
    }

    struct Entry
    {
        QString path;
        unsigned char kind;
    };

    /// Read whole before any is followed, so that a deep walk holds one directory open at a time.
    static std::vector<Entry> entriesOf(const QString& path)
    {
        std::vector<Entry> entries;
        const Directory directory(::opendir(bytesOfName(path).constData()));
        if (!directory) return entries;
        while (const dirent* entry = ::readdir(directory.get())) {
            const QString name = nameOfBytes(entry->d_name);
            if (name != u"." && name != u"..") entries.push_back({path::appendingComponent(path, name), entry->d_type});
        }
        return entries;
    }

    void followEntries(const QString& path)
    {
        for (const Entry& entry : entriesOf(path))
            follow(entry.path, entry.kind);
    }

    const std::function<void(const QString&)>& visit_;
    const std::atomic<bool>* const stop_;
    std::vector<Identity> inside_;
};

} // namespace

void walkFiles(const QString& path, const std::function<void(const QString& file)>& visit,
               const std::atomic<bool>* stop)
{
    Walk(visit, stop).follow(path, DT_UNKNOWN);
}

} // namespace zolt
