#include "checksum/ConsoleTail.h"

#include "platform/text/Text.h"

namespace zolt {

namespace {

/// Index of the last line that holds the text; -1 if none does.
qsizetype lastWith(const QStringList& lines, QLatin1String text)
{
    qsizetype index = lines.size() - 1;
    while (index >= 0 && !lines[index].contains(text))
        --index;
    return index;
}

} // namespace

QString flacClosingWords(const QString& console)
{
    const QStringList lines = splitIntoLines(console);
    const qsizetype progress = lastWith(lines, QLatin1String("% complete"));
    return progress < 0 ? u'\n' + lines.join(u'\n') : lines.mid(progress).join(u'\n');
}

QString apeClosingWords(const QString& console, const QString& title)
{
    const QStringList lines = splitIntoLines(console);
    const qsizetype progress = lastWith(lines, QLatin1String("Progress: "));
    const QString words = lines.mid(qMax(progress, qsizetype(0))).join(u'\n') + u'\n';
    return progress < 0 ? words : title + u'\n' + words;
}

} // namespace zolt
