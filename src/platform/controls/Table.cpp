#include "platform/controls/Table.h"

namespace zolt {

void Table::reloadData()
{
    ++reloads_;
    changed();
}

void Table::scrollRowToVisible(int row)
{
    if (rowToShow_.exchange(row) != row) changed();
}

} // namespace zolt
