#include "engine/console/ShntoolDialect.h"

namespace zolt {

namespace {

/// Where the head that starts at `from` ends with its " : "; -1 if it does not. One within a name follows no bracket. A
/// line of hashes has no head, even if its first digit is a letter.
qsizetype headEnd(QByteArrayView line, qsizetype from)
{
    if (line.indexOf("  [shntool]  ", from) >= 0) return -1;
    constexpr QByteArrayView mark = " : ";
    for (qsizetype at = line.indexOf(mark, from); at > from; at = line.indexOf(mark, at + 1)) {
        if (line[at - 1] == ')' || line[at - 1] == ']') return at + mark.size();
    }
    return -1;
}

/// Every head begins with a word such as "Fixing".
bool beginsHead(const QByteArray& text, qsizetype at)
{
    const char first = text.size() > at ? text[at] : 'A';
    return (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
}

/// How many bytes at the end begin a UTF-8 character whose rest is missing: 0 to 3.
qsizetype cutCharacterLength(QByteArrayView bytes)
{
    constexpr qsizetype most = 3;
    for (qsizetype length = 1; length <= std::min(most, bytes.size()); ++length) {
        const auto byte = uchar(bytes[bytes.size() - length]);
        if (byte >= 0x80 && byte < 0xc0) continue; // the lead byte stands further ahead
        if (byte < 0xc2 || byte > 0xf4) return 0;
        const qsizetype whole = byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
        return length < whole ? length : 0;
    }
    return 0;
}

bool isBackspaces(const QByteArray& text)
{
    return text.count('\b') == text.size();
}

} // namespace

/// How much of held_ can go on; sets inHead_ for what is left then.
qsizetype ShntoolDialect::wholeUpTo()
{
    qsizetype at = 0, behindHead = -1;
    for (bool inHead = inHead_;; inHead = true) {
        inHead = inHead && beginsHead(held_, at);
        const qsizetype lineEnd = held_.indexOf('\n', at);
        const QByteArrayView lines = QByteArrayView(held_).first(lineEnd < 0 ? held_.size() : lineEnd);
        const qsizetype end = inHead ? headEnd(lines, at) : -1;
        if (end >= 0) behindHead = end;
        if (lineEnd < 0) {
            inHead_ = behindHead < 0 && inHead;
            return behindHead >= 0 ? behindHead : inHead ? at : held_.size() - cutCharacterLength(held_);
        }
        at = lineEnd + 1;
    }
}

QByteArray ShntoolDialect::complete(const QByteArray& piece)
{
    held_ += piece;
    const qsizetype whole = wholeUpTo();
    const QByteArray completed = held_.first(whole);
    held_.remove(0, whole);
    return isBackspaces(completed) ? QByteArray() : completed;
}

} // namespace zolt
