// The text of a report with a margin that marks the lines that tell of a failure.
#pragma once

#include "engine/ReportVerdict.h"

#include <QPlainTextEdit>

namespace zolt {

/// The text is exactly the report, names that are not UTF-8 made readable; the signs stand beside it and are never
/// copied with it. Main thread.
class ReportView : public QPlainTextEdit
{
public:
    explicit ReportView(QWidget* parent = nullptr);

    void setReport(const QString& report, const ReportNotes& notes);
    /// Whether the line tells of a failed or missing file.
    bool isBad(const QTextBlock& line) const;
    int marginWidth() const;
    /// Draws the signs of the lines on screen. @param margin  the widget that lies in the margin
    void paintMargin(QWidget& margin);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void placeMargin();
    QWidget* const margin_;
    ReportNotes notes_; ///< their lines as they are shown
};

} // namespace zolt
