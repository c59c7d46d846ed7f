#include "shntool/SHNtoolOutputNamingFormatParser.h"

#include "platform/desktop/UserDefaults.h"
#include "platform/text/Scanner.h"

#include <limits>
#include <map>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString number = u"%number"_s, name = u"%name"_s, time = u"%time"_s;

/// The words by their places. All that are absent share the last place, which the last of them has.
std::map<qsizetype, QString> placesIn(const QString& format)
{
    std::map<qsizetype, QString> words;
    for (const QString& word : {number, name, time}) {
        const qsizetype place = format.indexOf(word);
        words[place < 0 ? std::numeric_limits<qsizetype>::max() : place] = word;
    }
    return words;
}

} // namespace

SHNtoolOutputNamingFormatParser::SHNtoolOutputNamingFormatParser()
    : shntoolNamesFormat_(UserDefaults::standard().stringForKey(u"shntoolNamesFormat"_s))
{
}

QString SHNtoolOutputNamingFormatParser::format() const
{
    QString format = shntoolNamesFormat_;
    if (zoltEndsWith(format, u"/"_s)) format = substringTo(format, format.size() - 2); // kept: one more than the slash
    if (zoltStartsWith(format, u"/"_s)) format = substringFrom(format, 1);
    return format;
}

QString SHNtoolOutputNamingFormatParser::getFormattedTotalLine(const QString& total) const
{
    const QString line = format();
    Scanner scanner(line);
    QString lead, token;
    for (const auto& [place, word] : placesIn(line)) {
        const bool kept = word == time;
        scanner.scanUpTo(word, kept ? &lead : nullptr);
        scanner.scanUpToSet(CharacterSet::WhiteSpace, kept ? &token : nullptr);
    }
    return QString(lead + token).replace(time, total) + u'\n';
}

QString SHNtoolOutputNamingFormatParser::getFormattedLineWithNameTimeTrackNumber(const QString& trackName,
                                                                                 const QString& trackTime,
                                                                                 const QString& trackNumber) const
{
    return format().replace(number, trackNumber).replace(name, trackName).replace(time, trackTime) + u'\n';
}

} // namespace zolt
