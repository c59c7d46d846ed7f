#include "app/Tabs.h"

#include "decode/DecodeTab.h"
#include "shell/Constants.h"

namespace zolt {

namespace {

template <class Tab> std::unique_ptr<BaseTab> make()
{
    return std::make_unique<Tab>();
}

} // namespace

const std::vector<TabRow>& tabRows()
{
    static const std::vector<TabRow> rows{
        {Constants::DECODE, make<DecodeTab>},
    };
    return rows;
}

} // namespace zolt
