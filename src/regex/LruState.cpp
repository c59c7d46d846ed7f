#include "regex/LruState.h"

#include "regex/Bookkeeping.h"

namespace zolt {

void LruState::touch(int way)
{
    RKL_REQUIRE(way >= 0 && way < ways);
    const unsigned row = 0xFu << (4 * way);
    const unsigned column = 0x1111u << (3 - way);
    bits_ = static_cast<std::uint16_t>((bits_ | row) & ~column);
}

int LruState::victim() const
{
    int way = ways - 1;
    while (way >= 0 && ((bits_ >> (4 * way)) & 0xF) != 0)
        --way;
    RKL_REQUIRE(way >= 0);
    return way;
}

} // namespace zolt
