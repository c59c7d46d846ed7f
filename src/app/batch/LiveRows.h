// The rows of running tasks on a terminal, drawn anew as they change.
#pragma once

#include "app/batch/RowPrinter.h"

#include <QTimer>

#include <deque>

namespace zolt::batch {

/// Ended tasks scroll by as lines; below them stand the running ones with bar and status, and how many are to go.
/// Drawn at most 20 times a second.
class LiveRows : public RowPrinter
{
public:
    LiveRows();

    void added(const RunRow& row) override;
    void ended(const RunRow& row) override;
    void note(const QString& text) override;
    void finish() override;

    /// One running task, cut to the width in columns.
    static QString runningLine(const ZOLTTask& task, int width);
    /// The text cut to that many columns of a terminal.
    static QString cutTo(const QString& text, int width);

private:
    void draw();
    QString erased() const;
    QString region(int width, int height);

    std::deque<std::shared_ptr<ZOLTTask>> open_;
    QString above_; ///< lines to print before the region is drawn again
    QString drawn_; ///< the region as it stands on the terminal
    QTimer tick_;
};

} // namespace zolt::batch
