#include "platform/text/Text.h"

#include "platform/errors/Exceptions.h"

#include <QStringConverter>

#include <limits>

namespace zolt {

namespace {

[[noreturn]] void throwOutOfRange(qsizetype index, qsizetype count)
{
    throw RangeException(QStringLiteral("index %1 beyond bounds, count %2").arg(index).arg(count));
}

QStringView withoutLeadingBlanks(QStringView text)
{
    qsizetype start = 0;
    while (start < text.size() && isInSet(text[start], CharacterSet::WhiteSpaceAndNewlines))
        ++start;
    return text.sliced(start);
}

bool isDigit(QStringView text, qsizetype at)
{
    return at < text.size() && text[at] >= u'0' && text[at] <= u'9';
}

bool isSign(QStringView text, qsizetype at)
{
    return at < text.size() && (text[at] == u'-' || text[at] == u'+');
}

qsizetype pastDigits(QStringView text, qsizetype at)
{
    while (isDigit(text, at))
        ++at;
    return at;
}

template <class Integer> Integer wholeNumber(QStringView text)
{
    text = withoutLeadingBlanks(text);
    const bool negative = !text.isEmpty() && text[0] == u'-';
    Integer value = 0;
    for (qsizetype at = isSign(text, 0) ? 1 : 0; isDigit(text, at); ++at) {
        const Integer digit = Integer(text[at].unicode() - u'0');
        if (__builtin_mul_overflow(value, Integer(10), &value) ||
            __builtin_add_overflow(value, Integer(negative ? -digit : digit), &value)) {
            return negative ? std::numeric_limits<Integer>::min() : std::numeric_limits<Integer>::max();
        }
    }
    return value;
}

} // namespace

bool isNewline(QChar character)
{
    switch (character.unicode()) {
    case 0x0A:
    case 0x0B:
    case 0x0C:
    case 0x0D:
    case 0x85:
    case 0x2028:
    case 0x2029:
        return true;
    default:
        return false;
    }
}

bool isInSet(QChar character, CharacterSet set)
{
    const bool blank = character == u'\t' || character.category() == QChar::Separator_Space;
    switch (set) {
    case CharacterSet::WhiteSpace:
        return blank;
    case CharacterSet::WhiteSpaceAndNewlines:
        return blank || isNewline(character);
    case CharacterSet::Newlines:
        return isNewline(character);
    case CharacterSet::DecimalDigits:
        return character.isDigit();
    case CharacterSet::Backspace:
        return character == u'\b';
    }
    return false;
}

QString trimmed(QStringView text, CharacterSet set)
{
    while (!text.isEmpty() && isInSet(text.front(), set))
        text = text.sliced(1);
    while (!text.isEmpty() && isInSet(text.back(), set))
        text.chop(1);
    return text.toString();
}

QStringList splitIntoLines(const QString& text)
{
    QStringList lines;
    qsizetype start = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!isNewline(text[at])) continue;
        lines.append(text.sliced(start, at - start));
        start = at + 1;
    }
    lines.append(text.sliced(start));
    return lines;
}

QStringList splitAt(const QString& text, const QString& separator)
{
    if (separator.isEmpty()) return {text};
    return text.split(separator);
}

const QString& pieceAt(const QStringList& pieces, qsizetype index)
{
    if (index < 0 || index >= pieces.size()) throwOutOfRange(index, pieces.size());
    return pieces[index];
}

QString substringFrom(const QString& text, qsizetype index)
{
    if (index < 0 || index > text.size()) throwOutOfRange(index, text.size());
    return text.sliced(index);
}

QString substringTo(const QString& text, qsizetype index)
{
    if (index < 0 || index > text.size()) throwOutOfRange(index, text.size());
    return text.first(index);
}

qsizetype wholeNumberLength(QStringView text)
{
    const qsizetype start = isSign(text, 0) ? 1 : 0;
    const qsizetype end = pastDigits(text, start);
    return end > start ? end : 0;
}

qsizetype decimalNumberLength(QStringView text)
{
    const qsizetype start = isSign(text, 0) ? 1 : 0;
    qsizetype end = pastDigits(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fraction = pastDigits(text, end + 1);
        digits += fraction - end - 1;
        if (digits > 0) end = fraction;
    }
    if (digits == 0) return 0;
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        const qsizetype exponent = isSign(text, end + 1) ? end + 2 : end + 1;
        if (isDigit(text, exponent)) end = pastDigits(text, exponent);
    }
    return end;
}

double doubleValue(QStringView text)
{
    text = withoutLeadingBlanks(text);
    const qsizetype length = decimalNumberLength(text);
    if (length == 0) return 0.0;
    if (text[0] == u'+') return doubleValue(text.sliced(1));
    return text.first(length).toDouble(); // no locale; past the range it gives 0 or infinity
}

int intValue(QStringView text)
{
    return wholeNumber<int>(text);
}

long long longLongValue(QStringView text)
{
    return wholeNumber<long long>(text);
}

QString fixedSix(double value)
{
    return QString::number(value, 'f', 6);
}

OptionalText decodeUtf8(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (decoder.hasError()) return std::nullopt;
    return text;
}

bool ZOLTStringCategory::zoltStartsWith(const QString& receiver, const QString& start)
{
    return !start.isEmpty() && receiver.startsWith(start);
}

bool ZOLTStringCategory::zoltEndsWith(const QString& receiver, const QString& end)
{
    return substringFrom(receiver, receiver.size() - 1) == end;
}

namespace path {

namespace {

QStringView withoutTrailingSlashes(QStringView path)
{
    while (path.size() > 1 && path.back() == u'/')
        path.chop(1);
    return path;
}

/// Where the last dot of the last component stands; -1 where the component has no extension.
qsizetype extensionDot(QStringView path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    const qsizetype start = path.lastIndexOf(u'/') + 1;
    return dot > start ? dot : -1;
}

} // namespace

QString lastComponent(const QString& path)
{
    const QStringView plain = withoutTrailingSlashes(path);
    if (plain == u"/") return plain.toString();
    return plain.sliced(plain.lastIndexOf(u'/') + 1).toString();
}

QString deletingLastComponent(const QString& path)
{
    const QStringView plain = withoutTrailingSlashes(path);
    const qsizetype slash = plain.lastIndexOf(u'/');
    if (slash < 0) return QString();
    return withoutTrailingSlashes(plain.first(std::max<qsizetype>(slash, 1))).toString();
}

QString extension(const QString& path)
{
    const QStringView plain = withoutTrailingSlashes(path);
    const qsizetype dot = extensionDot(plain);
    return dot < 0 ? QString() : plain.sliced(dot + 1).toString();
}

QString deletingExtension(const QString& path)
{
    const QStringView plain = withoutTrailingSlashes(path);
    const qsizetype dot = extensionDot(plain);
    return (dot < 0 ? plain : plain.first(dot)).toString();
}

QString appendingComponent(const QString& path, const QString& component)
{
    if (path.isEmpty()) return component;
    const QStringView plain = withoutTrailingSlashes(path);
    return plain == u"/" ? u'/' + component : plain.toString() + u'/' + component;
}

QString appendingExtension(const QString& path, const QString& extension)
{
    return withoutTrailingSlashes(path).toString() + u'.' + extension;
}

QString inFolderWithExtension(const QString& source, const QString& folder, const QString& extension)
{
    return appendingExtension(appendingComponent(folder, deletingExtension(lastComponent(source))), extension);
}

} // namespace path
} // namespace zolt
