#include "ui/files/DropCount.h"

#include "platform/files/FileWalk.h"
#include "platform/text/Text.h"
#include "shell/SystemFiles.h"
#include "shell/Wording.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype enough = 100'000; // a person dragging a whole disk need not wait for its exact number

struct Ended
{
};

} // namespace

DropCount countDrop(const QStringList& paths, const QSet<QString>& extensions, const std::atomic<bool>& stop)
{
    DropCount count;
    const auto visit = [&](const QString& file) {
        if (stop || count.files >= enough) throw Ended();
        const QString extension = path::extension(file).toUpper();
        const bool taken = extensions.isEmpty() || extension.isEmpty() || extensions.contains(extension);
        if (taken && !isSystemFile(file)) ++count.files;
    };
    try {
        for (const QString& path : paths)
            walkFiles(path, visit);
    } catch (const Ended&) {
        count.complete = false;
    }
    return count;
}

QString dropText(const DropCount& count)
{
    if (count.files == 0) return u"Nothing here that this list takes"_s;
    return u"Drop to add %1"_s.arg((count.complete ? QString() : u"more than "_s) + counted(count.files, u"file"_s));
}

} // namespace zolt
