#include "shntool/DiscKey.h"

#include "platform/text/Text.h"

#include <QHash>

namespace zolt {

using namespace Qt::StringLiterals;

QString discKey(const QString& path)
{
    return splitAt(splitAt(path, u"d"_s).last(), u"t"_s).first();
}

std::vector<DiscFiles> filesByDisc(const QStringList& files)
{
    std::vector<DiscFiles> discs;
    QHash<QString, std::size_t> places;
    for (const QString& file : files) {
        const QString key = discKey(file);
        const auto place = places.constFind(key);
        if (place == places.constEnd()) {
            places.insert(key, discs.size());
            discs.push_back({key, {file}});
        } else {
            discs[*place].files += file;
        }
    }
    return discs;
}

} // namespace zolt
