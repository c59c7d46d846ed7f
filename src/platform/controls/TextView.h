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

class TextView : public Control
{
public:
    QString string() const { return read(text_); }
    void setString(const QString& text) { write(text_, text); }
    Font font() const { return read(font_); }
    void setFont(const Font& font) { write(font_, font); }

private:
    QString text_;
    Font font_;
};

} // namespace zolt
