// A push button.
#pragma once

#include "platform/controls/Control.h"

namespace zolt {

/// How a button looks; one shared description serves many buttons.
struct ButtonStyle
{
    int controlSize = 0; ///< 0 regular, 1 small
    int bezelStyle = 1;  ///< 1 rounded, 6 square for an image
    bool border = true;
    int imagePosition = 0; ///< 0 title alone, 1 image alone
    QString imageName;     ///< named image, drawn in the text's colour
    double imageSize = 0;  ///< width and height in units
};

class Button : public Control
{
public:
    Button() : Button(pushStyle()) {}
    /// @param style  outlives the button
    explicit Button(const ButtonStyle& style) : style_(style) {}
    explicit Button(ButtonStyle&&) = delete;

    QString title() const { return read(title_); }
    void setTitle(const QString& title) { write(title_, title); }
    /// What a person's click does: performs the action. Nothing on a disabled button. Main thread.
    void click()
    {
        if (isEnabled()) performAction();
    }
    const ButtonStyle& style() const { return style_; }

    static const ButtonStyle& pushStyle();

private:
    const ButtonStyle& style_;
    QString title_;
};

} // namespace zolt
