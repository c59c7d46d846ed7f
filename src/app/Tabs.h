// The tabs of the program: one table, a row for each.
#pragma once

#include "shell/BaseTab.h"

#include <memory>
#include <vector>

namespace zolt {

struct TabRow
{
    QString label; ///< one of the tabs' constants
    std::unique_ptr<BaseTab> (*make)();
};

/// In the order of the window, without the about tab, which has no logic. Decode, encode and checksum are known by
/// their index, 0 to 2.
const std::vector<TabRow>& tabRows();

} // namespace zolt
