// The list in the queue panel.
#pragma once

#include "engine/StatusQueueCell.h"

#include <QListView>

#include <functional>

namespace zolt {

/// Rows draw themselves; their stop buttons are pressed here. Main thread.
class StatusQueueView : public QListView
{
public:
    explicit StatusQueueView(QWidget* parent = nullptr);

    /// Presses the stop button of a row, if it shows one.
    void stopRow(const QModelIndex& index);
    /// Called when a person asks for the selected rows to be stopped or taken out.
    void setRemoveHandler(std::function<void()> remove) { remove_ = std::move(remove); }
    /// The rows that are on screen now: what they show, in one text that changes whenever they have to be drawn again.
    QString visibleText() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    StatusQueueCell cellOf(const QModelIndex& index) const;
    QModelIndex stopButtonAt(QPoint place) const;

    std::function<void()> remove_;
    QPersistentModelIndex pressed_;
};

} // namespace zolt
