#pragma once

namespace zolt::bench {

/// Prints what adding, ending and sweeping cost a row, for 1,000 and for 10,000 rows.
void printPanelCost();

} // namespace zolt::bench
