// The list of a tab's files as a person meets it.
#pragma once

#include "ui/LatestJob.h"

#include <QSet>
#include <QTreeView>

#include <functional>

namespace zolt {

/// Says what to do while it is empty, takes files dropped on it, and lights its border while some are dragged over it.
/// Main thread.
class FileListView : public QTreeView
{
public:
    explicit FileListView(QWidget* parent = nullptr);

    /// What the list takes. @param extensions  upper case, in the order shown; empty for every file
    void setAcceptedExtensions(const QStringList& extensions);
    /// Called with the paths of a drop.
    void setDropHandler(std::function<void(const QStringList&)> handler) { dropped_ = std::move(handler); }
    /// Called with the selected rows when a person asks to take them out.
    void setRemoveHandler(std::function<void(const QList<qsizetype>&)> handler) { remove_ = std::move(handler); }

    QList<qsizetype> selectedRowNumbers() const;
    /// Selects these rows alone, the first of them in sight.
    void selectRowNumbers(const QList<qsizetype>& rows);
    /// Selects these rows alone; what is in sight stays there. @param rows  ascending
    void selectOnly(const QList<qsizetype>& rows);
    void removeSelected();
    /// What a drag over the list is told; empty while there is none.
    const QString& dragText() const { return dragText_; }

    // A page hands on what is dragged over any place of it.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showDrag(const QString& text);
    void paintHint(QPainter& painter) const;
    void paintDrag(QPainter& painter) const;

    QStringList extensions_;
    std::function<void(const QStringList&)> dropped_;
    std::function<void(const QList<qsizetype>&)> remove_;
    QString dragText_;
    LatestJob counting_;
};

} // namespace zolt
