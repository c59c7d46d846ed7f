#include "util/DiscTracks.h"

#include "platform/text/Text.h"

#include <algorithm>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString withTwoDigits(const QString& name)
{
    return leadingNumber(name) <= 9 && !name.startsWith(u'0') ? u'0' + name : name;
}

} // namespace

int leadingNumber(const QString& name)
{
    const auto blank = std::find_if(name.begin(), name.end(), [](QChar each) { return each.isSpace(); });
    return intValue(QStringView(name).first(blank - name.begin()));
}

QStringList tracksInOrder(const QStringList& files)
{
    QStringList names;
    for (const QString& file : files)
        names += withTwoDigits(path::lastComponent(file));
    names.sort();
    return names;
}

QStringList trackPathsInOrder(const QStringList& files)
{
    QStringList paths;
    for (const QString& file : files)
        paths += path::appendingComponent(path::deletingLastComponent(file), withTwoDigits(path::lastComponent(file)));
    paths.sort();
    return paths;
}

QString trackRange(const QStringList& names)
{
    int first = -1, last = 0;
    for (const QString& name : names) {
        const int number = leadingNumber(name);
        if (first < 0)
            first = last = number;
        else if (number == last + 1)
            last = number;
    }
    return u"%1+%2"_s.arg(first).arg(last);
}

} // namespace zolt
