#include "engine/ConsoleGrammar.h"

#include "engine/ZOLTTask.h"
#include "platform/text/Scanner.h"

namespace zolt {

namespace {

bool holdsAll(const QString& text, const QStringList& parts)
{
    return std::all_of(parts.begin(), parts.end(), [&text](const QString& part) { return text.contains(part); });
}

bool holdsAny(const QString& text, const QStringList& parts)
{
    return std::any_of(parts.begin(), parts.end(), [&text](const QString& part) { return text.contains(part); });
}

/// What a scanner takes; absent where there is nothing to take.
OptionalText takenUpTo(Scanner& scanner, const QString& stop)
{
    QString taken;
    return scanner.scanUpTo(stop, &taken) ? OptionalText(taken) : std::nullopt;
}

void scanPercentAndSeconds(ConsoleReading& reading)
{
    Scanner scanner(reading.text);
    scanner.scanUpToSet(CharacterSet::DecimalDigits);
    reading.digits = textOrEmpty(takenUpTo(scanner, QStringLiteral("%")));
    scanner.scanUpTo(QStringLiteral(" ("));
    scanner.scanUpToSet(CharacterSet::DecimalDigits);
    reading.second = takenUpTo(scanner, QStringLiteral(" seconds remaining"));
}

} // namespace

ConsoleReading ConsoleGrammar::read(const OptionalText& output, const QString& subject) const
{
    ConsoleReading reading;
    reading.text = trims ? trimmed(textOrEmpty(output), trim) : textOrEmpty(output);
    const bool marked = holdsAll(reading.text, markers);
    if (marked) readProgress(reading);
    if (marked || statusAlways) reading.status = filled(reading, subject);
    if (marked || barAlways) reading.bar = reading.value;
    reading.kept = keptOf(reading.text);
    reading.failed = std::any_of(errorTexts.begin(), errorTexts.end(),
                                 [&reading](const QStringList& parts) { return holdsAll(reading.text, parts); });
    return reading;
}

void ConsoleGrammar::readProgress(ConsoleReading& reading) const
{
    if (second == Second::ScannedSeconds) {
        scanPercentAndSeconds(reading);
    } else {
        QString number = reading.text;
        for (const Step& step : steps)
            number = pieceAt(splitAt(number, step.at), step.piece);
        reading.digits = number;
    }
    if (second == Second::Ratio)
        reading.second = substringFrom(reading.text, reading.text.indexOf(QLatin1String("ratio=")));
    reading.value = doubleValue(*reading.digits);
}

QString ConsoleGrammar::filled(const ConsoleReading& reading, const QString& subject) const
{
    const auto valueOf = [&](QStringView place) {
        if (place == u"digits") return textOrEmpty(reading.digits);
        if (place == u"second") return textOrEmpty(reading.second);
        return place == u"value" ? fixedSix(reading.value) : subject;
    };
    const QStringList parts = status.split(u'{'); // each but the first: a place, "}", and what stands behind it
    QString text = parts.first();
    for (const QString& part : parts.sliced(1)) {
        const qsizetype end = part.indexOf(u'}');
        text += valueOf(QStringView(part).first(end)) + part.sliced(end + 1);
    }
    return text;
}

QStringList ConsoleGrammar::keptOf(const QString& text) const
{
    QStringList kept;
    if (holdsAny(text, headWords)) kept += pieceAt(splitAt(text, QStringLiteral(": ")), 0);
    if (holdsAny(text, closingWords)) kept += text;
    for (int i = 0; i < appended; ++i)
        kept += text;
    return kept;
}

void ConsoleGrammar::show(const ConsoleReading& reading, ZOLTTask& task) const
{
    if (reading.failed) task.setError(true);
    if (reading.status) task.topTextField()->setStringValue(*reading.status);
    if (reading.bar) task.progressIndicator()->setDoubleValue(*reading.bar);
    if (const auto collector = task.results()) {
        for (const QString& text : reading.kept) {
            if (slot == Slot::First)
                collector->appendResults(text);
            else
                collector->appendResultsForTask(text, &task);
        }
    }
    if (namesRow) task.textField()->setStringValue(task.title());
}

} // namespace zolt
