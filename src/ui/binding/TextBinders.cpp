#include "platform/controls/TextField.h"
#include "platform/controls/TextView.h"
#include "ui/Fonts.h"
#include "ui/binding/Binders.h"
#include "ui/binding/OutletBinding.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <limits>

namespace zolt {

namespace {

void bindLabel(QLabel& label, const std::shared_ptr<TextField>& field, const Changed& changed)
{
    label.setTextFormat(Qt::PlainText);
    const auto show = [hadText = std::make_shared<bool>(false)](QLabel& widget, const TextField& model) {
        QString text = model.stringValue();
        *hadText = *hadText || !text.isEmpty();
        if (!*hadText) return;                                        // its own words stay until the model has some
        if (widget.buddy()) text.replace(u'&', QStringLiteral("&&")); // no key of its own comes from a name
        widget.setText(text);
    };
    keepShown<TextField>(label, field, show, changed);
}

void bindLine(QLineEdit& line, const std::shared_ptr<TextField>& field, const Changed& changed)
{
    const auto show = [](QLineEdit& widget, const TextField& model) {
        // The person's own typing comes back here; setting it again would move the cursor.
        const QString text = model.stringValue();
        if (text != widget.text()) {
            widget.setText(text);
            const bool focused = widget.window()->focusWidget() == &widget; // also while its window is not in front
            if (!widget.isVisible() || focused)
                widget.selectAll(); // typing goes over what was proposed
            else
                widget.home(false); // a long text is read from its start
        }
        if (!widget.isEnabled()) widget.deselect();
    };
    line.setMaxLength(std::numeric_limits<int>::max()); // by itself a line drops what is behind 32,767 letters
    keepShown<TextField>(line, field, show, changed);
    QObject::connect(&line, &QLineEdit::textEdited, &line,
                     [field](const QString& text) { guarded("text field", [&] { field->enterText(text); }); });
}

/// As toPlainText(), with blanks that do not break as they are.
QString textIn(const QPlainTextEdit& box)
{
    constexpr char16_t lineEnds[] = {0x2028, 0x2029, 0xfdd0, 0xfdd1}; // as a document has them
    QString text = box.document()->toRawText();
    for (const char16_t lineEnd : lineEnds)
        text.replace(QChar(lineEnd), u'\n');
    return text;
}

/// For texts that may have line ends, or be long: a line would drop them once it is typed in.
void bindBox(QPlainTextEdit& box, const std::shared_ptr<TextField>& field, const Changed& changed)
{
    // Only what a person changes: the box has line ends of one kind, the field keeps the file's until then.
    const auto showing = std::make_shared<bool>(false);
    const auto show = [showing](QPlainTextEdit& shown, const TextField& model) {
        if (textIn(shown) == model.stringValue()) return;
        *showing = true;
        shown.setPlainText(model.stringValue());
        *showing = false;
    };
    keepShown<TextField>(box, field, show, changed);
    QObject::connect(&box, &QPlainTextEdit::textChanged, &box, [&box, field, showing] {
        if (!*showing) guarded("text box", [&] { field->enterText(textIn(box)); });
    });
}

} // namespace

void bindWidget(QWidget& widget, const std::shared_ptr<TextField>& model, const Changed& changed)
{
    if (auto* const box = qobject_cast<QPlainTextEdit*>(&widget)) return bindBox(*box, model, changed);
    if (auto* const label = qobject_cast<QLabel*>(&widget)) return bindLabel(*label, model, changed);
    bindLine(shownBy<QLineEdit>(widget), model, changed);
}

void bindWidget(QWidget& widget, const std::shared_ptr<TextView>& model, const Changed& changed)
{
    auto& text = shownBy<QPlainTextEdit>(widget);
    const auto showing = std::make_shared<bool>(false); // what is shown was typed by nobody
    const auto show = [showing](QPlainTextEdit& shown, const TextView& view) {
        if (!view.font().family.isEmpty()) shown.setFont(shownFont(view.font()));
        if (textIn(shown) == view.string()) return;
        *showing = true;
        shown.setPlainText(view.string());
        *showing = false;
    };
    keepShown<TextView>(text, model, show, changed);
    QObject::connect(&text, &QPlainTextEdit::textChanged, &text, [&text, model, showing] {
        if (*showing || textIn(text) == model->string()) return;
        guarded("text view", [&] { model->enterText(textIn(text)); });
    });
    QObject::connect(&text, &QPlainTextEdit::selectionChanged, &text, [&text, model] {
        const QTextCursor cursor = text.textCursor();
        model->setSelectedRange({cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()});
    });
}

} // namespace zolt
