#include "engine/ReportVerdict.h"

#include "platform/text/Counts.h"

#include <QStringTokenizer>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <iterator>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

enum class At { Start, End, Anywhere };

/// Where a text stands in a line, and what the line says then. The first that holds decides.
struct LineRule
{
    At at;
    QLatin1StringView text;
    LineVerdict verdict;
};

constexpr LineRule lineRules[] = {
    // The lists of sums: our own words. Ends come first, since a name may hold any other text.
    {At::End, " : OK"_L1, LineVerdict::Good},
    {At::End, " : FAILED"_L1, LineVerdict::Bad},
    {At::End, " : Invalid checksum format"_L1, LineVerdict::Bad},
    {At::End, " : did not match fingerprint file"_L1, LineVerdict::Bad},
    {At::End, " : did not match shntool md5 file"_L1, LineVerdict::Bad},
    // metaflac, flac
    {At::End, "STATUS_ERROR_OPENING_FILE\""_L1, LineVerdict::Missing},
    {At::End, ": ok"_L1, LineVerdict::Good},
    {At::Anywhere, ": ERROR"_L1, LineVerdict::Bad},
    {At::Start, "ERROR: "_L1, LineVerdict::Bad},
    // shntool
    {At::End, "% OK"_L1, LineVerdict::Good},
    {At::Anywhere, "warning: cannot open non-existent file: "_L1, LineVerdict::Missing},
    {At::Anywhere, "warning: none of the builtin format modules handle input file: "_L1, LineVerdict::Bad},
    {At::Anywhere, "]: error: "_L1, LineVerdict::Bad},
    // wavpack, wvunpack: all progress stands in one line with the outcome
    {At::Anywhere, " secs (loss"_L1, LineVerdict::Good}, // "(lossless, 77.49%)"
    {At::Anywhere, "missing data or crc errors detected"_L1, LineVerdict::Bad},
    {At::Anywhere, "file is missing "_L1, LineVerdict::Bad},
    {At::Anywhere, "MD5 signatures should match, but do not!"_L1, LineVerdict::Bad},
    {At::Anywhere, "not compatible with this version of WavPack file!"_L1, LineVerdict::Bad},
    {At::Anywhere, "not a valid WavPack file"_L1, LineVerdict::Bad},
    {At::Anywhere, "can't open file "_L1, LineVerdict::Missing},
    {At::Anywhere, "can't create file "_L1, LineVerdict::Bad},
    {At::Anywhere, "disk probably full!"_L1, LineVerdict::Bad},
    {At::Anywhere, "(yes/no/all)?"_L1, LineVerdict::Bad},
    // mac, ttaenc
    {At::Start, "Success."_L1, LineVerdict::Good},
    {At::Start, "Error: "_L1, LineVerdict::Bad},
    {At::Anywhere, "every checksum is right."_L1, LineVerdict::Good},
    {At::Start, "ttaenc: error: "_L1, LineVerdict::Bad},
    // our own words where a tool could not be started
    {At::Start, "cannot start \""_L1, LineVerdict::Bad},
};

/// What a text anywhere in the report says of the cause. The one that stands first here is told.
struct Cause
{
    QLatin1StringView text;
    QLatin1StringView sentence;
};

constexpr QLatin1StringView outputExists("The output exists already.");
constexpr QLatin1StringView noRoom("The disk has no room left.");
constexpr QLatin1StringView noRight("The output cannot be written there: no right to write.");
constexpr QLatin1StringView sourceGone("The source is not there or cannot be read.");
constexpr QLatin1StringView otherKind("The file is not of the kind that its name says, or it is damaged.");
constexpr QLatin1StringView damaged("The file is damaged or cut.");
constexpr QLatin1StringView noTool("The tool could not be started.");

constexpr Cause causes[] = {
    {"cannot start \""_L1, noTool},
    {" already exists, use -f to override"_L1, outputExists},
    {"(yes/no/all)?"_L1, outputExists},
    {": Permission denied"_L1, noRight},
    {"can't create file "_L1, noRight},
    {"No space left on device"_L1, noRoom},
    {"the most common cause is that the disk is full"_L1, noRoom},
    {"disk probably full!"_L1, noRoom},
    {"STATUS_ERROR_OPENING_FILE"_L1, sourceGone},
    {"cannot open non-existent file"_L1, sourceGone},
    {"can't open file "_L1, sourceGone},
    {"STATUS_NOT_A_FLAC_FILE"_L1, otherKind},
    {"either not a FLAC file or is corrupted"_L1, otherKind},
    {"not compatible with this version of WavPack file!"_L1, otherKind},
    {"not a valid WavPack file"_L1, otherKind},
    {"none of the builtin format modules handle"_L1, otherKind},
    {": is not a Monkey's Audio file"_L1, otherKind},
    {": is not a TTA file"_L1, otherKind},
    {"STATUS_LOST_SYNC"_L1, damaged},
    {"MD5 signature mismatch"_L1, damaged},
    {"MD5 signatures should match, but do not!"_L1, damaged},
    {"missing data or crc errors detected"_L1, damaged},
    {"file is missing "_L1, damaged},
    {": ERROR while decoding"_L1, damaged},
    {": the checksum "_L1, damaged},
    {": the file is cut"_L1, damaged},
    {": has a damaged header"_L1, damaged},
};

bool holds(const LineRule& rule, QStringView line)
{
    switch (rule.at) {
    case At::Start:
        return line.startsWith(rule.text);
    case At::End:
        return line.endsWith(rule.text);
    case At::Anywhere:
        break;
    }
    return line.contains(rule.text);
}

QString causeOf(const QString& report)
{
    const auto found = std::find_if(std::begin(causes), std::end(causes),
                                    [&report](const Cause& cause) { return report.contains(cause.text); });
    return found == std::end(causes) ? QString() : QString(found->sentence);
}

QString causeOfSignal(int signal)
{
    if (signal == SIGKILL) return u"The tool was killed: by somebody, or by the system for want of memory."_s;
    const bool ownFault =
        signal == SIGSEGV || signal == SIGABRT || signal == SIGBUS || signal == SIGILL || signal == SIGFPE;
    return (ownFault ? u"The tool crashed (%1)."_s : u"The tool was killed (%1)."_s)
        .arg(QString::fromLatin1(::sigdescr_np(signal)));
}

void count(ReportVerdict& counts, LineVerdict verdict)
{
    switch (verdict) {
    case LineVerdict::Good:
        ++counts.good;
        break;
    case LineVerdict::Bad:
        ++counts.bad;
        break;
    case LineVerdict::Missing:
        ++counts.missing;
        break;
    case LineVerdict::Other:
        ++counts.other;
    }
}

} // namespace

LineVerdict verdictOfLine(QStringView line)
{
    const QStringView text = line.trimmed();
    const auto rule = std::find_if(std::begin(lineRules), std::end(lineRules),
                                   [text](const LineRule& each) { return holds(each, text); });
    return rule == std::end(lineRules) ? LineVerdict::Other : rule->verdict;
}

LineVerdict verdictOfLine(QStringView line, const ReportNotes& notes)
{
    const bool isMissing = !notes.missing.isEmpty() && notes.missing.contains(line.toString());
    return isMissing ? LineVerdict::Missing : verdictOfLine(line);
}

ReportVerdict verdictOf(const QString& report, const ReportNotes& notes)
{
    ReportVerdict verdict;
    for (const QStringView line : QStringTokenizer(report, u'\n')) {
        if (!line.trimmed().isEmpty()) count(verdict, verdictOfLine(line, notes));
    }
    verdict.bad += notes.faults.size();
    if (notes.signal != 0)
        verdict.cause = causeOfSignal(notes.signal);
    else if (verdict.failed())
        verdict.cause = notes.faults.isEmpty() ? causeOf(report) : notes.faults.first();
    return verdict;
}

QString inWords(const ReportVerdict& verdict)
{
    QStringList parts;
    const auto add = [&parts](qsizetype count, const QString& word) {
        if (count > 0) parts += grouped(count) + u' ' + word;
    };
    add(verdict.good, u"OK"_s);
    add(verdict.bad, u"failed"_s);
    add(verdict.missing, u"missing"_s);
    return parts.isEmpty() ? counted(verdict.other, u"line"_s) : parts.join(u", "_s);
}

} // namespace zolt
