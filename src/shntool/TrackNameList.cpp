#include "shntool/TrackNameList.h"

#include "platform/text/Text.h"
#include "regex/RegularExpressions.h"

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

const QString datePattern = QStringLiteral(R"(^(0?[1-9]|1[012])[- /.](0?[1-9]|[12][0-9]|3[01])[- /.](19|20)\d\d)");
const QString numberPattern = QStringLiteral(R"(^\(?\[?[0-9]+\.?\)?\]?)");
const QString timePattern = QStringLiteral(R"(\(?\[?[0-9]+[\:\.][0-9]*([\:\.]?[0-9]*)?\)?\]?$)");

/// A number in brackets has no digits at its start, so that "(1)" never begins a list.
bool isOne(const QString& number)
{
    const auto end = std::find_if_not(number.begin(), number.end(), [](QChar letter) { return letter.isDigit(); });
    return intValue(QStringView(number.begin(), end)) == 1;
}

/// Kept: "(blank)" is decided before the time goes, and a blank ahead of the time stays.
QString nameBehind(const QString& number, const QString& line)
{
    QString name = trimmed(QStringView(line).sliced(number.size()), CharacterSet::WhiteSpaceAndNewlines);
    if (name.isEmpty()) name = u"(blank)"_s;
    if (const OptionalText time = stringByMatching(name, timePattern)) name.truncate(name.indexOf(*time));
    return name;
}

} // namespace

QString trackNamesIn(const QString& text)
{
    QString names;
    bool started = false;
    const QStringList lines = splitIntoLines(text);
    for (const QString& line : lines) {
        if (stringByMatching(line, datePattern)) continue;
        const OptionalText number = stringByMatching(line, numberPattern);
        if (!number) continue;
        started = started || isOne(*number);
        if (started) names += nameBehind(*number, line) + u'\n';
    }
    return names;
}

} // namespace zolt
