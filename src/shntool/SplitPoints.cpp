#include "shntool/SplitPoints.h"

#include "platform/text/Text.h"
#include "shell/Constants.h"
#include "shntool/ShntoolLog.h"
#include "shntool/TrackNumber.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// The rest of a line behind the keyword, without the quotes around it.
QString titleOn(const QString& line)
{
    const qsizetype behind = line.indexOf(Constants::CUE_TITLE) + Constants::CUE_TITLE.size();
    QString title = trimmed(line.sliced(behind), CharacterSet::WhiteSpaceAndNewlines);
    if (title.startsWith(u'"')) title.remove(0, 1);
    if (title.endsWith(u'"')) title.chop(1);
    return title;
}

void store(TrackTitles& titles, const OptionalText& name, const QString& key)
{
    if (name) titles[key] = *name;
}

} // namespace

QString pieceName(int number, const QString& format)
{
    return u"split-track"_s + trackNumber(number) + u'.' + format;
}

TrackTitles trackTitles(const QString& text, const QString& format)
{
    TrackTitles titles;
    OptionalText name;
    int number = 0;
    for (const QString& untrimmed : splitIntoLines(text)) {
        const QString line = trimmed(untrimmed, CharacterSet::WhiteSpaceAndNewlines);
        if (zoltStartsWith(line, Constants::CUE_TRACK)) {
            if (number > 0) {
                store(titles, name, pieceName(number, format));
                qCInfo(shntoolLog, "set title: %s for key: %s", qUtf8Printable(textOrEmpty(name)),
                       qUtf8Printable(pieceName(number, format)));
            }
            name = pieceName(++number, format);
        } else if (zoltStartsWith(line, Constants::CUE_TITLE)) {
            name = trackNumber(number) + u' ' + path::appendingExtension(titleOn(line), format);
        }
    }
    store(titles, name, pieceName(number, format));
    return titles;
}

} // namespace zolt
