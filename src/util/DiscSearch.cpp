#include "util/DiscSearch.h"

#include "engine/NSTaskWrapperSync.h"
#include "platform/errors/Exceptions.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QHash<int, QString> titlesFrom(const QString& device, const QString& informationTool)
{
    QHash<int, QString> titles;
    guarded("titles of a disc", [&] {
        NSTaskWrapperSync asked(informationTool, {u"-J"_s, u"-H"_s, u"-v"_s, u"titles"_s, u"dev="_s + device});
        titles = titlesOf(textOrEmpty(asked.runTask()));
    });
    return titles;
}

} // namespace

FoundDisc lookForDisc(const QStringList& devices, const QString& informationTool, const ContentsReader& read)
{
    FoundDisc found;
    for (const QString& device : devices) {
        found.fault.clear();
        const QList<DiscTrack> tracks = read(device, found.fault);
        if (!found.fault.isEmpty()) continue;
        found.drive = path::lastComponent(device);
        found.names = trackFileNames(tracks, titlesFrom(device, informationTool));
        break;
    }
    return found;
}

} // namespace zolt
