#include "ui/reports/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

namespace zolt {

using namespace Qt::StringLiterals;

FindBar::FindBar(QWidget* parent) : QWidget(parent), words_(new QLineEdit(this)), told_(new QLabel(this))
{
    auto* const label = new QLabel(u"Fi&nd:"_s, this);
    label->setBuddy(words_);
    words_->setObjectName(u"findField"_s);
    words_->setClearButtonEnabled(true);
    words_->setAccessibleName(u"Words to find"_s);
    words_->setToolTip(u"Enter goes to the next place, Shift+Enter to the one before"_s);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(words_, 1);
    row->addWidget(told_);
    connect(words_, &QLineEdit::textEdited, this, &FindBar::typed);
    hide();
}

void FindBar::open()
{
    if (const QString selected = view_->textCursor().selectedText(); !selected.isEmpty()) words_->setText(selected);
    show();
    words_->setFocus(Qt::ShortcutFocusReason);
    words_->selectAll();
}

void FindBar::close()
{
    hide();
    view_->setFocus();
}

void FindBar::typed(const QString& words)
{
    QTextCursor cursor = view_->textCursor();
    cursor.setPosition(cursor.selectionStart()); // a longer word is looked for where the shorter one stands
    view_->setTextCursor(cursor);
    if (!words.isEmpty())
        find(false);
    else
        showFound(true);
}

void FindBar::find(bool backward)
{
    const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = view_->find(words_->text(), flags);
    if (!found) {
        const QTextCursor before = view_->textCursor();
        view_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = view_->find(words_->text(), flags);
        if (!found) view_->setTextCursor(before);
    }
    showFound(found);
}

void FindBar::showFound(bool found)
{
    told_->setText(found ? QString() : u"Not found"_s);
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) return close();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return find(event->modifiers() & Qt::ShiftModifier);
    QWidget::keyPressEvent(event);
}

} // namespace zolt
