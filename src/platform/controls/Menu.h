// What a context menu offers.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace zolt {

struct MenuItem
{
    QString title;                ///< "&" stands before its mnemonic
    std::function<void()> action; ///< run on the main thread
};

struct Menu
{
    std::vector<MenuItem> items;
};

} // namespace zolt
