#include "regex/ScratchBuffer.h"

#include "regex/Bookkeeping.h"

#include <utility>

namespace zolt {

char16_t* ScratchBuffer::allocate(std::size_t count)
{
    RKL_REQUIRE(blocksInUse_ < mostBlocks);
    blocks_[blocksInUse_] = std::make_unique_for_overwrite<char16_t[]>(count);
    return blocks_[blocksInUse_++].get();
}

ScratchBuffer::Blocks ScratchBuffer::take()
{
    blocksInUse_ = 0;
    return std::exchange(blocks_, Blocks());
}

} // namespace zolt
