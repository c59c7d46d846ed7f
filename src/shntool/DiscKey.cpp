#include "shntool/DiscKey.h"

#include "platform/text/Text.h"

#include <algorithm>

namespace zolt {

using namespace Qt::StringLiterals;

QString discKey(const QString& path)
{
    return splitAt(splitAt(path, u"d"_s).last(), u"t"_s).first();
}

std::vector<DiscFiles> filesByDisc(const QStringList& files)
{
    std::vector<DiscFiles> discs;
    for (const QString& file : files) {
        const QString key = discKey(file);
        const auto disc = std::find_if(discs.begin(), discs.end(), [&](const auto& each) { return each.key == key; });
        if (disc == discs.end())
            discs.push_back({key, {file}});
        else
            disc->files += file;
    }
    return discs;
}

} // namespace zolt
