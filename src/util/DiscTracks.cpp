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

TrackRange rangeOf(const QStringList& names)
{
    TrackRange range;
    for (const QString& name : names) {
        const int number = leadingNumber(name);
        if (range.first < 0)
            range.first = range.last = number;
        else if (number == range.last + 1)
            range.last = number;
    }
    return range;
}

QString trackRange(const QStringList& names)
{
    const TrackRange range = rangeOf(names);
    return u"%1+%2"_s.arg(range.first).arg(range.last);
}

QList<qsizetype> rowsOutsideRange(const QStringList& files)
{
    const TrackRange range = rangeOf(tracksInOrder(files));
    QList<qsizetype> rows;
    for (qsizetype row = 0; row < files.size(); ++row) {
        if (!range.holds(leadingNumber(path::lastComponent(files[row])))) rows += row;
    }
    return rows;
}

} // namespace zolt
