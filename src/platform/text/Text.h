// Text operations that the console parsers and file readers share. No state; any thread.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>

namespace zolt {

/// A text that may be absent; absent and empty are different.
using OptionalText = std::optional<QString>;

/// Sets of characters that `trimmed` removes and that a scanner stops at.
enum class CharacterSet {
    WhiteSpace,            ///< Unicode space separators and tab
    WhiteSpaceAndNewlines, ///< the above and every newline character
    Newlines,              ///< LF, CR, VT, FF, NEL, LS, PS
    DecimalDigits,         ///< decimal digits of any script
    Backspace              ///< U+0008 alone
};

/// True for LF, CR, VT, FF, NEL, LS and PS.
bool isNewline(QChar character);

/// True if the character is in the set.
bool isInSet(QChar character, CharacterSet set);

/// The text without the characters of the set at both ends.
QString trimmed(QStringView text, CharacterSet set);

/// The text split at every newline character, each one a separator, so that CR LF gives one empty line more.
/// The result has at least one line.
QStringList splitIntoLines(const QString& text);

/// The text split at each occurrence of `separator`; the whole text in one piece where there is none.
QStringList splitAt(const QString& text, const QString& separator);

/// Piece number `index` (from 0). @throws RangeException if there is no such piece
const QString& pieceAt(const QStringList& pieces, qsizetype index);

/// The text from `index` (UTF-16 units) to the end. @throws RangeException if index is negative or past the end
QString substringFrom(const QString& text, qsizetype index);

/// The first `index` units of the text. @throws RangeException if index is negative or past the end
QString substringTo(const QString& text, qsizetype index);

/// The longest decimal number at the start, leading blanks skipped; 0.0 if there is none. No locale.
double doubleValue(QStringView text);

/// How many units the whole number at the very start of the text takes, its sign included; 0 if there is none.
qsizetype wholeNumberLength(QStringView text);

/// As wholeNumberLength, for a decimal number with fraction and exponent.
qsizetype decimalNumberLength(QStringView text);

/// The longest whole number at the start, leading blanks skipped, held to 32 bits; 0 if there is none.
int intValue(QStringView text);

/// As intValue, held to 64 bits.
long long longLongValue(QStringView text);

/// The number with six decimals and a point whatever the locale, as C's "%f" prints it.
QString fixedSix(double value);

/// The bytes as strict UTF-8; absent if they are not valid UTF-8, a cut character at the end included.
OptionalText decodeUtf8(QByteArrayView bytes);

/// Appends a text that may be absent; an absent one adds nothing.
inline void appendText(QString& target, const OptionalText& text)
{
    if (text) target += *text;
}

/// What a format prints for a text that may be absent: the empty text.
inline QString textOrEmpty(const OptionalText& text)
{
    return text.value_or(QString());
}

/// What the string class gets from us; callers need not name it.
inline namespace ZOLTStringCategory {

/// True if the receiver starts with the argument; false for an empty argument, since an empty search finds nothing.
bool zoltStartsWith(const QString& receiver, const QString& start);

/// Holds only for an argument of one unit: kept, what is compared is the receiver's last unit alone.
/// @throws RangeException on an empty receiver
bool zoltEndsWith(const QString& receiver, const QString& end);

} // namespace ZOLTStringCategory

/// Path operations, on the text alone.
namespace path {

/// The part behind the last slash; trailing slashes are passed over. "/" gives "/".
QString lastComponent(const QString& path);
/// The path without its last component: "/a/b" gives "/a", "/a" gives "/", "a" gives "".
QString deletingLastComponent(const QString& path);
/// The text behind the last dot of the last component, without the dot; empty if there is none
/// or if the component starts with its only dot.
QString extension(const QString& path);
/// The path without the extension and its dot.
QString deletingExtension(const QString& path);
/// The path with a component joined by exactly one slash.
QString appendingComponent(const QString& path, const QString& component);
/// The path, a dot and the extension.
QString appendingExtension(const QString& path, const QString& extension);
/// Where a conversion of `source` goes: in the folder, under the source's base name with another extension.
QString inFolderWithExtension(const QString& source, const QString& folder, const QString& extension);

} // namespace path
} // namespace zolt
