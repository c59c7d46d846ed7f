#include "engine/console/ShntoolDialect.h"

namespace zolt {

namespace {

/// Where the head that starts at `from` ends with its " : "; -1 if it does not. One within a name follows no bracket.
qsizetype headEnd(QByteArrayView line, qsizetype from)
{
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
            return behindHead >= 0 ? behindHead : inHead ? at : held_.size();
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
