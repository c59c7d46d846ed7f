// The rows of the queue panel.
#pragma once

#include "engine/StatusQueueCell.h"

#include <QAbstractListModel>

#include <memory>

namespace zolt {

class ZOLTTask;
class ZOLTTaskQueue;

/// Knows how many rows there are and asks the queue for what a row shows when it is drawn: nothing is kept for a row
/// and nothing watches one, so that ten thousand waiting rows cost nothing. Main thread.
class StatusQueueModel : public QAbstractListModel
{
public:
    /// @param queue  outlives what is asked of this object
    explicit StatusQueueModel(ZOLTTaskQueue& queue, QObject* parent = nullptr)
        : QAbstractListModel(parent), queue_(queue)
    {
    }

    /// Takes over the rows that the queue has now. @return true if others have come or gone
    bool refresh();
    /// None for a row that was swept since.
    std::shared_ptr<ZOLTTask> task(int row) const;
    /// The controls of a row; empty ones for a row that was swept since.
    StatusQueueCell cell(int row) const;

    /// What the row's status line says: the tool's words, or that the tool is still to end.
    QString status(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    /// The row in words, for readers aloud and for copying.
    QVariant data(const QModelIndex& index, int role) const override;

private:
    ZOLTTaskQueue& queue_;
    int rows_ = 0;
    std::weak_ptr<ZOLTTask> last_; ///< of the last row: it stands elsewhere once a row has gone
};

} // namespace zolt
