// A line of text.
#pragma once

#include "platform/controls/Colour.h"
#include "platform/controls/Control.h"
#include "platform/text/Text.h"

namespace zolt {

/// How a text field looks; one shared description serves many fields.
struct TextFieldStyle
{
    bool border = true;
    bool editable = true;
    bool wraps = false;
    bool bold = false;
    double fontSize = 13.0;               ///< in points
    bool controlColourBackground = false; ///< lies on the window's own colour
};

class TextField : public Control
{
public:
    TextField() : TextField(editableStyle()) {}
    /// @param style  outlives the field
    explicit TextField(const TextFieldStyle& style) : style_(style) {}
    explicit TextField(TextFieldStyle&&) = delete;

    QString stringValue() const { return read(text_); }
    void setStringValue(const QString& text) { write(text_, text); }
    /// The whole number at the start of the text; 0 if there is none.
    int intValue() const { return zolt::intValue(stringValue()); }
    void setIntValue(int value) { setStringValue(QString::number(value)); }
    /// What a person's typing does: sets the text and performs the action, key by key. Nothing when disabled.
    /// Main thread.
    void enterText(const QString& text);
    Colour textColour() const { return read(colour_); }
    void setTextColour(const Colour& colour) { write(colour_, colour); }
    const TextFieldStyle& style() const { return style_; }

    static const TextFieldStyle& editableStyle();
    static const TextFieldStyle& labelStyle();

private:
    const TextFieldStyle& style_;
    QString text_;
    Colour colour_;
};

} // namespace zolt
