#include "ui/TextSides.h"

#include "ui/PlainText.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QStyle>

namespace zolt {

namespace {

template <class Worded> void keepInOrder(Worded& worded)
{
    const QString shown = inReadingOrder(worded.text(), Qt::RightToLeft);
    if (!worded.text().isEmpty() && worded.text() != shown) worded.setText(shown);
}

} // namespace

void keepTextsOnTheirSide(QWidget& window)
{
    for (QLabel* const label : window.findChildren<QLabel*>())
        label->setAlignment(QStyle::visualAlignment(label->layoutDirection(), label->alignment()));
    if (!window.isRightToLeft()) return;
    for (QAbstractButton* const button : window.findChildren<QAbstractButton*>())
        keepInOrder(*button);
    for (QAction* const action : window.findChildren<QAction*>())
        keepInOrder(*action);
}

void showWords(QAbstractButton& button, const QString& words)
{
    const QString shown = inReadingOrder(words, button.layoutDirection());
    if (!words.isEmpty() && button.text().remove(u'&') != shown) button.setText(shown);
}

} // namespace zolt
