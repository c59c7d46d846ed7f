#include "regex/ScratchBuffer.h"

#include "regex/Bookkeeping.h"

#include <algorithm>

namespace zolt {

char16_t* ScratchBuffer::allocate(std::size_t count)
{
    const auto free = std::find(blocks_.begin(), blocks_.end(), nullptr);
    RKL_REQUIRE(free != blocks_.end());
    *free = std::make_unique_for_overwrite<char16_t[]>(count);
    return free->get();
}

ScratchBuffer::Blocks ScratchBuffer::take()
{
    return std::exchange(blocks_, Blocks());
}

std::size_t ScratchBuffer::blocksInUse() const
{
    return mostBlocks - static_cast<std::size_t>(std::count(blocks_.begin(), blocks_.end(), nullptr));
}

} // namespace zolt
