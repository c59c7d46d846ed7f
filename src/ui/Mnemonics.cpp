#include "ui/Mnemonics.h"

#include <QAbstractButton>
#include <QLabel>
#include <QToolButton>

namespace zolt {

namespace {

constexpr QChar mark = u'&';

bool canBeAKey(QChar letter)
{
    return letter.unicode() < 128 && letter.isLetterOrNumber();
}

/// Where a free letter stands in the text: the first of a word if one is free, else any; -1 for none.
qsizetype freeLetter(const QString& text, const QSet<QChar>& taken)
{
    qsizetype any = -1;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!canBeAKey(text[at]) || taken.contains(text[at].toLower())) continue;
        if (at == 0 || !text[at - 1].isLetterOrNumber()) return at;
        if (any < 0) any = at;
    }
    return any;
}

/// The text with a letter marked that nobody has, which is then taken.
QString withMnemonic(const QString& text, QSet<QChar>& taken)
{
    const QChar present = mnemonicOf(text);
    if (!present.isNull() && !taken.contains(present)) {
        taken += present;
        return text;
    }
    QString plain = QString(text).remove(mark);
    const qsizetype at = freeLetter(plain, taken);
    if (at < 0) return plain;
    taken += plain[at].toLower();
    return plain.insert(at, mark);
}

/// Those of the page's widgets whose text can have a key, in the order in which they were laid out.
template <class Work> void forEachText(QWidget& page, Work work)
{
    for (QWidget* const each : page.findChildren<QWidget*>()) {
        if (auto* const button = qobject_cast<QAbstractButton*>(each); button && !button->text().isEmpty())
            work(*button);
        else if (auto* const label = qobject_cast<QLabel*>(each); label && label->buddy())
            work(*label);
    }
}

} // namespace

QChar mnemonicOf(const QString& text)
{
    for (qsizetype at = text.indexOf(mark); at >= 0 && at + 1 < text.size(); at = text.indexOf(mark, at + 2)) {
        if (text[at + 1] != mark) return text[at + 1].toLower();
    }
    return QChar();
}

void assignMnemonics(QWidget& page, QSet<QChar> taken)
{
    // Those that were chosen come first.
    forEachText(page, [&](auto& widget) {
        if (!mnemonicOf(widget.text()).isNull()) widget.setText(withMnemonic(widget.text(), taken));
    });
    forEachText(page, [&](auto& widget) {
        if (mnemonicOf(widget.text()).isNull()) widget.setText(withMnemonic(widget.text(), taken));
    });
}

} // namespace zolt
