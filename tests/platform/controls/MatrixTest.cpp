#include "platform/controls/Matrix.h"

#include "platform/errors/Exceptions.h"
#include "support/EventLoop.h"
#include "support/test.h"

#include <thread>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<Matrix> formats()
{
    return std::make_shared<Matrix>(3, 2, QStringList{u"FLAC"_s, u"SHN"_s, u"WV"_s, u"TTA"_s, u"APE"_s, u"M4A"_s});
}

std::vector<bool> states(const Matrix& matrix)
{
    std::vector<bool> all;
    for (int row = 0; row < matrix.rows(); ++row) {
        for (int column = 0; column < matrix.columns(); ++column)
            all.push_back(matrix.cellAt(row, column).state);
    }
    return all;
}

} // namespace

TEST(Matrix, ACellsIndexIsRowTimesColumnsPlusColumn)
{
    const auto matrix = formats();
    EXPECT_EQ(matrix->cellAt(1, 1).title, u"TTA"_s);
    EXPECT_EQ(matrix->cellAt(1, 1).tag, 3);
    matrix->selectIndex(4);
    EXPECT_EQ(matrix->selectedRow(), 2);
    EXPECT_EQ(matrix->selectedColumn(), 0);
    matrix->selectCell(0, 1);
    EXPECT_EQ(matrix->selectedIndex(), 1);
    EXPECT_EQ(matrix->selectedCell().title, u"SHN"_s);
}

TEST(Matrix, ARadioMatrixStartsWithItsFirstCellAndHasOneOn)
{
    const auto matrix = formats();
    EXPECT_EQ(matrix->selectedCell().title, u"FLAC"_s);
    matrix->selectCell(1, 0);
    EXPECT_EQ(states(*matrix), (std::vector<bool>{false, false, true, false, false, false}));
}

TEST(Matrix, SelectsByTitle)
{
    const auto matrix = formats();
    EXPECT_TRUE(matrix->selectTitle(u"APE"_s));
    EXPECT_EQ(matrix->selectedIndex(), 4);
    EXPECT_FALSE(matrix->selectTitle(u"ape"_s));
    EXPECT_EQ(matrix->selectedIndex(), 4);
}

TEST(Matrix, WithNoCellSelectedTheSelectedCellIsEmpty)
{
    const auto matrix = formats();
    matrix->deselectAllCells();
    EXPECT_EQ(matrix->selectedIndex(), -1);
    EXPECT_EQ(matrix->selectedRow(), -1);
    EXPECT_EQ(matrix->selectedColumn(), -1);
    EXPECT_TRUE(matrix->selectedCell().title.isNull());
    EXPECT_EQ(states(*matrix), std::vector<bool>(6, false));
}

TEST(Matrix, ACellThatIsNotThereChangesNothingAndCannotBeRead)
{
    const auto matrix = formats();
    matrix->selectCell(3, 0);
    matrix->selectCell(0, 2);
    matrix->selectCell(-1, 0);
    matrix->selectIndex(6);
    matrix->selectIndex(-1);
    matrix->clickCell(0, 2);
    EXPECT_EQ(matrix->selectedIndex(), 0);
    EXPECT_THROW((void)matrix->cellAt(0, 2), RangeException);
    EXPECT_THROW(matrix->setCellEnabled(3, 0, false), RangeException);
}

TEST(Matrix, FewerTitlesThanCellsLeaveEmptyOnes)
{
    const Matrix matrix(1, 2, {u"only"_s});
    EXPECT_EQ(matrix.cellAt(0, 1).title, QString());
}

TEST(Matrix, CellsHaveTitleTagAndEnablingOfTheirOwn)
{
    const auto matrix = formats();
    matrix->setCellTitle(0, 0, u"Add"_s);
    matrix->setCellTag(0, 0, 77);
    matrix->setCellEnabled(0, 1, false);
    EXPECT_EQ(matrix->selectedCell().title, u"Add"_s);
    EXPECT_EQ(matrix->cellAt(0, 0).tag, 77);
    EXPECT_FALSE(matrix->cellAt(0, 1).enabled);
    EXPECT_TRUE(matrix->cellAt(1, 1).enabled);
}

TEST(Matrix, AClickSelectsAndActsAlsoOnTheCellChosenBefore)
{
    const auto matrix = formats();
    QStringList clicked;
    matrix->setAction([&] { clicked.append(matrix->selectedCell().title); });
    matrix->clickCell(1, 0);
    matrix->clickCell(1, 0);
    matrix->selectCell(0, 0);
    EXPECT_EQ(clicked, (QStringList{u"WV"_s, u"WV"_s}));
}

TEST(Matrix, DisabledCellsAndDisabledMatricesTakeNoClick)
{
    const auto matrix = formats();
    int actions = 0;
    matrix->setAction([&] { ++actions; });
    matrix->setCellEnabled(1, 0, false);
    matrix->clickCell(1, 0);
    matrix->setEnabled(false);
    matrix->clickCell(2, 0);
    EXPECT_EQ(actions, 0);
    EXPECT_EQ(matrix->selectedIndex(), 0);
    EXPECT_EQ(matrix->selectedCell().title, u"FLAC"_s) << "a disabled matrix is still read";
}

TEST(Matrix, CheckCellsAreOnOrOffEachByItself)
{
    const auto matrix = std::make_shared<Matrix>(1, 3, QStringList{u"a"_s, u"b"_s, u"c"_s}, Matrix::Mode::Check);
    EXPECT_EQ(matrix->selectedIndex(), -1);
    matrix->clickCell(0, 0);
    matrix->clickCell(0, 2);
    EXPECT_EQ(states(*matrix), (std::vector<bool>{true, false, true}));
    EXPECT_EQ(matrix->selectedIndex(), 2);
    matrix->clickCell(0, 0);
    matrix->setCellState(0, 1, true);
    matrix->deselectAllCells();
    EXPECT_EQ(states(*matrix), (std::vector<bool>{false, true, true}));
}

TEST(Matrix, AStateIsSetInCheckMatricesAlone)
{
    const auto matrix = formats();
    matrix->setCellState(2, 1, true);
    EXPECT_FALSE(matrix->cellAt(2, 1).state);
}

TEST(Matrix, ReadersOnOtherThreadsSeeOneWholeCell)
{
    const auto matrix = formats();
    std::atomic<bool> done = false;
    std::thread reader([&] {
        while (!done) {
            const MatrixCell cell = matrix->selectedCell();
            EXPECT_TRUE(cell.state);
            EXPECT_TRUE((cell.title == u"FLAC" && cell.tag == 0) || (cell.title == u"M4A" && cell.tag == 5));
        }
    });
    for (int turn = 0; turn < 2000; ++turn)
        matrix->selectIndex(turn % 2 == 0 ? 5 : 0);
    done = true;
    reader.join();
}
