// Which rows of a list are selected.
#pragma once

#include <QList>

class QAbstractItemView;

namespace zolt {

/// Ascending, each once; at once also where ten thousand rows are selected one by one. Main thread.
QList<qsizetype> selectedRows(const QAbstractItemView& view);

} // namespace zolt
