#include "platform/controls/Matrix.h"

#include "platform/errors/Exceptions.h"

namespace zolt {

Matrix::Matrix(int rows, int columns, const QStringList& titles, Mode mode)
    : rows_(rows), columns_(columns), mode_(mode), cells_(size_t(rows) * size_t(columns))
{
    for (size_t index = 0; index < cells_.size(); ++index) {
        cells_[index].title = titles.value(qsizetype(index));
        cells_[index].tag = int(index);
    }
    if (mode == Mode::Radio && !cells_.empty()) select(0);
}

bool Matrix::has(int row, int column) const
{
    return row >= 0 && row < rows_ && column >= 0 && column < columns_;
}

size_t Matrix::indexOf(int row, int column) const
{
    if (!has(row, column)) {
        throw RangeException(
            QStringLiteral("cell %1, %2 beyond bounds, %3 rows of %4").arg(row).arg(column).arg(rows_).arg(columns_));
    }
    return size_t(row) * size_t(columns_) + size_t(column);
}

MatrixCell Matrix::cellAt(int row, int column) const
{
    const size_t index = indexOf(row, column);
    const std::lock_guard guard(mutex_);
    return cells_[index];
}

MatrixCell Matrix::selectedCell() const
{
    const std::lock_guard guard(mutex_);
    return selected_ < 0 ? MatrixCell() : cells_[size_t(selected_)];
}

int Matrix::selectedRow() const
{
    const int index = selectedIndex();
    return index < 0 ? -1 : index / columns_;
}

int Matrix::selectedColumn() const
{
    const int index = selectedIndex();
    return index < 0 ? -1 : index % columns_;
}

/// Called with the mutex held, or before the matrix is shared.
void Matrix::select(int index)
{
    selected_ = index;
    if (mode_ == Mode::Check) return;
    for (size_t each = 0; each < cells_.size(); ++each)
        cells_[each].state = int(each) == index;
}

void Matrix::selectCell(int row, int column)
{
    if (has(row, column)) selectIndex(row * columns_ + column);
}

void Matrix::selectIndex(int index)
{
    if (index < 0 || index >= rows_ * columns_) return;
    {
        const std::lock_guard guard(mutex_);
        select(index);
    }
    changed();
}

bool Matrix::selectTitle(const QString& title)
{
    {
        const std::lock_guard guard(mutex_);
        const auto found =
            std::find_if(cells_.begin(), cells_.end(), [&](const auto& cell) { return cell.title == title; });
        if (found == cells_.end()) return false;
        select(int(found - cells_.begin()));
    }
    changed();
    return true;
}

void Matrix::deselectAllCells()
{
    {
        const std::lock_guard guard(mutex_);
        select(-1);
    }
    changed();
}

template <class Field, class Value>
void Matrix::setCell(int row, int column, Field MatrixCell::*field, const Value& value)
{
    const size_t index = indexOf(row, column);
    {
        const std::lock_guard guard(mutex_);
        cells_[index].*field = value;
    }
    changed();
}

void Matrix::setCellTitle(int row, int column, const QString& title)
{
    setCell(row, column, &MatrixCell::title, title);
}

void Matrix::setCellEnabled(int row, int column, bool enabled)
{
    setCell(row, column, &MatrixCell::enabled, enabled);
}

void Matrix::setCellTag(int row, int column, int tag)
{
    setCell(row, column, &MatrixCell::tag, tag);
}

void Matrix::setCellState(int row, int column, bool on)
{
    if (mode_ == Mode::Check) setCell(row, column, &MatrixCell::state, on);
}

void Matrix::clickCell(int row, int column)
{
    if (!isEnabled() || !has(row, column)) return;
    const MatrixCell cell = cellAt(row, column);
    if (!cell.enabled) return;
    setCellState(row, column, !cell.state);
    selectCell(row, column);
    performAction();
}

} // namespace zolt
