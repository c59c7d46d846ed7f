// Text of many lines in one font.
#pragma once

#include "platform/controls/Control.h"

namespace zolt {

/// A font by name; the front end falls back to the system's own of that kind where the name is missing.
struct Font
{
    QString family;
    double pointSize = 0.0;
    bool operator==(const Font&) const = default;
};

struct TextSelection
{
    qsizetype location = 0; ///< in UTF-16 units, as the length
    qsizetype length = 0;
    bool operator==(const TextSelection&) const = default;
};

class TextView : public Control
{
public:
    QString string() const { return read(text_); }
    void setString(const QString& text) { write(text_, text); }
    /// What a person's typing does: sets the text and performs the action. Main thread.
    void enterText(const QString& text)
    {
        setString(text);
        performAction();
    }

    /// What is selected, as the view tells it: a place in the text and a length. Main thread.
    TextSelection selectedRange() const { return selection_; }
    void setSelectedRange(TextSelection selection) { selection_ = selection; }

    Font font() const { return read(font_); }
    void setFont(const Font& font) { write(font_, font); }

private:
    QString text_;
    Font font_;
    TextSelection selection_;
};

} // namespace zolt
