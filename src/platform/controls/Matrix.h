// A grid of cells: radio buttons, of which one or none is selected, or check boxes.
#pragma once

#include "platform/controls/Control.h"

#include <QStringList>

#include <vector>

namespace zolt {

/// One cell of a matrix.
struct MatrixCell
{
    QString title;
    bool state = false; ///< on; in a radio matrix the selected cell alone
    bool enabled = true;
    int tag = 0; ///< the cell's index unless it was set
};

/// A cell's index is its row times the number of columns plus its column. Rows and columns count from 0.
class Matrix : public Control
{
public:
    enum class Mode {
        Radio, ///< at most one cell is on
        Check  ///< each cell is on or off by itself; the selected one is the one clicked last
    };

    /// @param titles  by index; cells without one have an empty title. In a radio matrix the first cell is selected.
    Matrix(int rows, int columns, const QStringList& titles, Mode mode = Mode::Radio);

    int rows() const { return rows_; }
    int columns() const { return columns_; }
    Mode mode() const { return mode_; }

    /// A copy of the cell. @throws RangeException if there is no such cell
    MatrixCell cellAt(int row, int column) const;
    /// A copy of the selected cell; an empty one where none is selected.
    MatrixCell selectedCell() const;

    int selectedIndex() const { return read(selected_); } ///< -1 if no cell is selected
    int selectedRow() const;                              ///< -1 if no cell is selected
    int selectedColumn() const;                           ///< -1 if no cell is selected

    /// Selects a cell; in a radio matrix it is on and the others off. Nothing happens where there is no such cell.
    void selectCell(int row, int column);
    /// As selectCell, by index.
    void selectIndex(int index);
    /// Selects the first cell of that title. @return false, with the selection left, if no cell has it
    bool selectTitle(const QString& title);
    /// Leaves no cell selected and, in a radio matrix, none on.
    void deselectAllCells();

    /// @throws RangeException if there is no such cell; the same holds for the two that follow
    void setCellTitle(int row, int column, const QString& title);
    void setCellEnabled(int row, int column, bool enabled);
    void setCellTag(int row, int column, int tag);
    /// Turns a cell of a check matrix on or off. @throws RangeException if there is no such cell
    void setCellState(int row, int column, bool on);

    /// What a person's click does: selects the cell (a check cell is turned over) and performs the action, also on the
    /// cell that was selected before. Nothing on a disabled or missing cell. Main thread.
    void clickCell(int row, int column);

private:
    bool has(int row, int column) const;
    size_t indexOf(int row, int column) const;
    void select(int index);
    template <class Field, class Value> void setCell(int row, int column, Field MatrixCell::*field, const Value& value);

    const int rows_;
    const int columns_;
    const Mode mode_;
    std::vector<MatrixCell> cells_;
    int selected_ = -1;
};

} // namespace zolt
