#include "regex/ScratchBuffer.h"

#include "support/test.h"

using namespace zolt;

namespace {

/// The blocks that room of so many units takes.
std::size_t blocksFor(std::size_t units)
{
    ScratchBuffer scratch;
    std::size_t blocks = 99;
    scratch.withUnits(units, [&](char16_t* room) {
        std::fill_n(room, units, u'x');
        blocks = scratch.blocksInUse();
    });
    return blocks;
}

} // namespace

TEST(ScratchBuffer, TakesTheHeapAbove131071Bytes)
{
    EXPECT_EQ(blocksFor(0), 0U);
    EXPECT_EQ(blocksFor(65535), 0U); // 131,070 bytes
    EXPECT_EQ(blocksFor(65536), 1U); // 131,072 bytes
}

TEST(ScratchBuffer, BlocksThatAreTakenOutStayWithTheTaker)
{
    ScratchBuffer scratch;
    char16_t* first = nullptr;
    scratch.withUnits(70000, [&](char16_t* room) { first = room; });
    EXPECT_EQ(scratch.blocksInUse(), 1U);
    const ScratchBuffer::Blocks mine = scratch.take();
    EXPECT_EQ(scratch.blocksInUse(), 0U);
    EXPECT_EQ(mine[0].get(), first);
    first[69999] = u'x';
    scratch.withUnits(70000, [&](char16_t*) {});
    scratch.freeAll();
    EXPECT_EQ(scratch.blocksInUse(), 0U);
}

TEST(ScratchBufferDeathTest, OneBlockTooManyAborts)
{
    ScratchBuffer scratch;
    for (std::size_t block = 0; block < ScratchBuffer::mostBlocks; ++block)
        scratch.withUnits(70000, [](char16_t*) {});
    EXPECT_DEATH(scratch.withUnits(70000, [](char16_t*) {}), "ScratchBuffer.cpp:[0-9]+: Invalid parameter");
}
