// Room for temporary UTF-16: the stack for what is small, heap blocks for the rest.
#pragma once

#include <alloca.h>

#include <array>
#include <cstddef>
#include <memory>

namespace zolt {

/// The heap blocks of one operation. Guarded by the cache's lock, but for blocks that were taken out.
class ScratchBuffer
{
public:
    /// More than this goes to the heap.
    static constexpr std::size_t maximumStackBytes = 131071;
    /// A pattern, a replacement and the results of two passes: no operation needs more at once.
    static constexpr std::size_t mostBlocks = 4;
    using Blocks = std::array<std::unique_ptr<char16_t[]>, mostBlocks>;

    /// Calls `use` with room for that many UTF-16 units. Room on the stack is gone when `use` returns;
    /// room on the heap stays until freeAll, or with whoever has taken the blocks.
    /// @throws std::bad_alloc
    template <typename Use> void withUnits(std::size_t count, const Use& use);

    /// Hands over all blocks, so that they can be read after the unlock.
    Blocks take();
    void freeAll() { take(); }
    std::size_t blocksInUse() const { return blocksInUse_; }

private:
    char16_t* allocate(std::size_t count);

    Blocks blocks_;
    std::size_t blocksInUse_ = 0;
};

// Never inlined: what alloca gives must be gone when this returns, not when its caller does.
template <typename Use> [[gnu::noinline]] void ScratchBuffer::withUnits(std::size_t count, const Use& use)
{
    const std::size_t bytes = count * sizeof(char16_t);
    if (bytes <= maximumStackBytes) {
        use(static_cast<char16_t*>(alloca(bytes + sizeof(char16_t))));
    } else {
        use(allocate(count));
    }
}

} // namespace zolt
