// A report: one text, one window.
#pragma once

#include "engine/ReportVerdict.h"
#include "platform/controls/TextView.h"
#include "platform/controls/Window.h"

#include <QString>

#include <memory>

namespace zolt {

/// What a window needs to know of a report beside its text.
struct ReportFacts
{
    QString source = {}; ///< full path of the file that its task works on; empty where that is none, or several
    ReportNotes notes = {};
};

/// Any thread: the models hand their changes to the main thread, where the view is built.
class OutputWindowController
{
public:
    explicit OutputWindowController(ReportFacts facts = {});

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
    const ReportFacts& facts() const { return facts_; }

private:
    std::shared_ptr<Window> window_;
    std::shared_ptr<TextView> textField_;
    const Font font_;
    const ReportFacts facts_;
};

} // namespace zolt
