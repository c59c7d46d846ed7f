#include "engine/RunProgress.h"

using namespace zolt;

namespace {

constexpr auto unknown = RunProgress::unknown;
using Part = RunProgress::Part;

} // namespace

TEST(RunProgress, RowsWeighAsMuchAsTheirBytes)
{
    RunProgress progress;
    progress.add(300);
    progress.add(100);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 0.0);
    progress.end(300, Part::Worked);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 0.75);
    EXPECT_DOUBLE_EQ(progress.fraction(50.0), 0.875);
    progress.end(100, Part::Canceled);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 1.0);
}

TEST(RunProgress, RowOfUnknownSizeWeighsAsTheOthersOnAverage)
{
    RunProgress progress;
    for (const qint64 bytes : {100, 200, int(unknown)})
        progress.add(bytes);
    EXPECT_DOUBLE_EQ(progress.weight(unknown), 150.0);
    progress.end(unknown, Part::Worked);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 150.0 / 450.0);
}

TEST(RunProgress, RowsOfUnknownSizeAloneWeighAlike)
{
    RunProgress progress;
    for (int row = 0; row < 4; ++row)
        progress.add(unknown);
    progress.end(unknown, Part::Worked);
    EXPECT_DOUBLE_EQ(progress.fraction(0.5 * progress.weight(unknown)), 0.375);
}

TEST(RunProgress, SizeThatIsLearntLaterCountsWhereTheRowStandsByThen)
{
    RunProgress progress;
    progress.add(unknown);
    progress.add(unknown);
    progress.end(unknown, Part::Worked);
    progress.learn(Part::Worked, 900);
    progress.learn(Part::Open, 100);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 0.9);
}

TEST(RunProgress, EmptyFileIsSomeWork)
{
    RunProgress progress;
    progress.add(0);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 0.0);
    progress.end(0, Part::Worked);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 1.0);
}

TEST(RunProgress, NothingToDoIsNoProgress)
{
    EXPECT_DOUBLE_EQ(RunProgress().fraction(0.0), 0.0);
    EXPECT_EQ(RunProgress().remaining(0.0, 5.0), std::nullopt);
}

TEST(RunProgress, RestTakesAsLongAsThePaceSays)
{
    RunProgress progress;
    for (int row = 0; row < 4; ++row)
        progress.add(100);
    EXPECT_EQ(progress.remaining(0.0, 10.0), std::nullopt) << "nothing is done yet";
    EXPECT_EQ(progress.remaining(1.0, 10.0), std::nullopt) << "too little to tell";
    progress.end(100, Part::Worked);
    EXPECT_EQ(progress.remaining(0.0, 10.0), 30.0);
    EXPECT_EQ(progress.remaining(100.0, 10.0), 10.0);
    EXPECT_EQ(progress.remaining(100.0, 0.0), std::nullopt);
}

TEST(RunProgress, WhatWasCanceledIsNeitherDoneNorToDo)
{
    RunProgress progress;
    for (int row = 0; row < 4; ++row)
        progress.add(100);
    progress.end(100, Part::Worked);
    progress.end(100, Part::Canceled);
    progress.end(100, Part::Canceled);
    EXPECT_DOUBLE_EQ(progress.fraction(0.0), 0.75);
    EXPECT_EQ(progress.remaining(0.0, 10.0), 10.0);
}
