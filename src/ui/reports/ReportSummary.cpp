#include "ui/reports/ReportSummary.h"

#include "shell/Wording.h"

#include <QStringTokenizer>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView goodEndings[] = {u": OK", u": ok"};
constexpr QStringView badWords[] = {u"FAILED", u"ERROR", u"Error"};
constexpr QStringView badWordsInAnyCase[] = {u"mismatch", u"does not match"};

} // namespace

LineVerdict verdictOfLine(QStringView line)
{
    const auto holds = [line](QStringView word, Qt::CaseSensitivity sensitivity) {
        return line.contains(word, sensitivity);
    };
    const auto held = [&](QStringView word) { return holds(word, Qt::CaseSensitive); };
    const auto heldInAnyCase = [&](QStringView word) { return holds(word, Qt::CaseInsensitive); };
    const QStringView text = line.trimmed();
    const auto ends = [text](QStringView ending) { return text.endsWith(ending); };
    if (std::any_of(std::begin(goodEndings), std::end(goodEndings), ends)) return LineVerdict::Good;
    if (std::any_of(std::begin(badWords), std::end(badWords), held)) return LineVerdict::Bad;
    if (std::any_of(std::begin(badWordsInAnyCase), std::end(badWordsInAnyCase), heldInAnyCase)) return LineVerdict::Bad;
    return LineVerdict::None;
}

QString reportSummary(const QString& report)
{
    qsizetype good = 0, bad = 0, lines = 0;
    for (const QStringView line : QStringTokenizer(report, u'\n', Qt::SkipEmptyParts)) {
        ++lines;
        const LineVerdict verdict = verdictOfLine(line);
        if (verdict == LineVerdict::Good) ++good;
        if (verdict == LineVerdict::Bad) ++bad;
    }
    if (good == 0 && bad == 0) return counted(lines, u"line"_s);
    if (good == 0) return u"%1, %2 with an error"_s.arg(counted(lines, u"line"_s)).arg(bad);
    return bad == 0 ? u"%1 OK"_s.arg(good) : u"%1 OK, %2 failed"_s.arg(good).arg(bad);
}

} // namespace zolt
