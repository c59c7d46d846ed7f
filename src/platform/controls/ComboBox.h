// A text that a person types or takes from a list.
#pragma once

#include "platform/controls/Control.h"
#include "platform/text/Text.h"

namespace zolt {

class ComboBox : public Control
{
public:
    explicit ComboBox(QStringList items = {}, QString text = {}) : items_(std::move(items)), text_(std::move(text)) {}

    QStringList items() const { return read(items_); }
    void setItems(const QStringList& items) { write(items_, items); }

    QString stringValue() const { return read(text_); }
    void setStringValue(const QString& text) { write(text_, text); }
    /// The whole number at the start of the text; 0 if there is none.
    int intValue() const { return zolt::intValue(stringValue()); }
    void setIntValue(int value) { setStringValue(QString::number(value)); }

    /// The place of the text in the list; -1 if it is none of the items.
    int selectedIndex() const;
    /// Makes an item the text. Nothing happens where there is no such item.
    void selectIndex(int index);

    /// What a person's typing or choosing does: sets the text and performs the action. Nothing when disabled.
    /// Main thread.
    void enterText(const QString& text);

private:
    QStringList items_;
    QString text_;
};

} // namespace zolt
