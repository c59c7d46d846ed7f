// A report: one text, one window.
#pragma once

#include "platform/controls/TextView.h"
#include "platform/controls/Window.h"

#include <memory>

namespace zolt {

/// Any thread: the models hand their changes to the main thread, where the view is built.
class OutputWindowController
{
public:
    OutputWindowController();

    /// Loads the interface "OutputWindow".
    void loadWindow();
    /// Nothing; a report is set in full at once.
    void textAppend(const QString& text);
    /// Fixed pitch first, then the text in one piece; the title goes to the window.
    void setTextValueTitle(const QString& text, const QString& title);
    void showWindow();

    const std::shared_ptr<Window>& window() const { return window_; }
    const std::shared_ptr<TextView>& textField() const { return textField_; }
    const Font& font() const { return font_; }

private:
    std::shared_ptr<Window> window_;
    std::shared_ptr<TextView> textField_;
    const Font font_;
};

} // namespace zolt
