// A report with what can be done about it, in a window of its own or beside a list.
#pragma once

#include "engine/OutputWindowController.h"

#include <QWidget>

#include <memory>

namespace Ui {
class ReportPane;
}

namespace zolt {

/// The text is exactly the report; above it stands the cause in words, where it is known. Main thread.
class ReportPane : public QWidget
{
public:
    explicit ReportPane(QWidget* parent = nullptr);
    ~ReportPane() override;

    /// Shows a report from its first bad line on, past what the tool says of itself.
    void setReport(const QString& title, const QString& report, const ReportFacts& facts = {});
    void setFont(const Font& font);
    const QString& report() const { return report_; }

    /// Asks where to, and saves the report as text.
    void saveAs();
    void openFind();
    void findNext();
    /// Closes the line that finds words. @return false if it was not open
    bool closeFind();

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void wire();
    /// In a narrow place the buttons stand below the rest.
    void arrange();
    void showBadLines(bool only);
    void scrollPastBanner();

    const std::unique_ptr<Ui::ReportPane> form_;
    QString title_;
    QString report_;
    ReportFacts facts_;
};

/// Asks where to, and saves the text; tells if that fails. Main thread.
void saveText(const QString& panelTitle, const QString& fileName, const QString& text);
/// As above with the path given.
void saveTextTo(const QString& path, const QString& text);

} // namespace zolt
