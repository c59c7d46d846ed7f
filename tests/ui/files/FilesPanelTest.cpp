#include "ui/files/FilesPanel.h"

#include "ui/Drags.h"
#include "ui/Pictures.h"
#include "ui/SelectedRows.h"
#include "ui/WindowFixture.h"
#include "ui/files/FileListModel.h"
#include "ui/files/FileListView.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStringListModel>
#include <QUrl>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class FilesPanelTest : public WindowTest
{
protected:
    int folderColumn() { return static_cast<FileListModel*>(list().model())->folderColumn(); }
    FileListView& list() { return widget<FileListView>("tableView"); }
    QString shown(int row, int column = 0) { return list().model()->index(row, column).data().toString(); }
    QString countLine() { return widget<QLabel>("countLabel").text(); }
};

TEST_F(FilesPanelTest, AnEmptyListSaysWhatToDo)
{
    const QImage empty = list().viewport()->grab().toImage();
    EXPECT_GT(colourCount(empty), 5); // letters
    add({file(u"a.flac"_s)});
    EXPECT_NE(list().viewport()->grab().toImage(), empty);
}

TEST_F(FilesPanelTest, ADropFillsTheListSortedWithFoldersWhole)
{
    const QString folder = QFileInfo(file(u"a/2/c.flac"_s)).path();
    EXPECT_EQ(dropOn(*list().viewport(), {file(u"b.flac"_s), folder}), Qt::CopyAction);
    ASSERT_TRUE(runUntil([this] { return list().model()->rowCount() == 2; }));
    EXPECT_EQ(shown(0), u"c.flac"_s);
    EXPECT_EQ(shown(1), u"b.flac"_s);
}

TEST_F(FilesPanelTest, ANameThatIsNotUtf8IsReadableAndFoundAndTakenAsItIs)
{
    const QString path = file(oldName());
    EXPECT_EQ(dropOn(*list().viewport(), {path, file(u"other.flac"_s)}), Qt::CopyAction);
    ASSERT_TRUE(runUntil([this] { return list().model()->rowCount() == 2; }));
    EXPECT_THAT(tab().fileNames().copy(), ElementsAre(pathOf(u"other.flac"_s), path));
    const QModelIndex row = list().model()->index(1, 0);
    EXPECT_EQ(row.data().toString(), u"sätze.flac"_s);
    EXPECT_TRUE(row.data(Qt::AccessibleDescriptionRole).toString().endsWith(u"/sätze.flac"_s));
    const QString told = row.data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(told.contains(u"sätze.flac"_s) && told.contains(u"10 bytes"_s)) << told.toStdString();
    widget<QLineEdit>("filterField").setText(u"ä"_s);
    EXPECT_FALSE(list().isRowHidden(1, {}));
    EXPECT_TRUE(list().isRowHidden(0, {}));
}

TEST_F(FilesPanelTest, ADragTellsHowManyFilesWouldCome)
{
    file(u"show/a.flac"_s);
    file(u"show/disc/b.flac"_s);
    file(u"show/notes.txt"_s);
    dragOver(*list().viewport(), {pathOf(u"show"_s)});
    EXPECT_TRUE(runUntil([this] { return list().dragText() == u"Drop to add 2 files"; }));
    dragAway(*list().viewport());
    EXPECT_TRUE(list().dragText().isEmpty());
}

TEST_F(FilesPanelTest, ADragLightsTheBorder)
{
    const QImage before = list().viewport()->grab().toImage();
    dragOver(*list().viewport(), {file(u"a.flac"_s)});
    const QImage lit = list().viewport()->grab().toImage();
    EXPECT_NE(lit.pixelColor(lit.width() / 2, 1), before.pixelColor(before.width() / 2, 1));
}

TEST_F(FilesPanelTest, ADragOfSomethingElseIsNotTaken)
{
    QMimeData words;
    words.setText(u"words"_s);
    QDragEnterEvent event(QPoint(20, 20), Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(list().viewport(), &event);
    EXPECT_TRUE(list().dragText().isEmpty());
}

TEST_F(FilesPanelTest, ColumnsThatTheTabAddsStandBetweenNameAndFolder)
{
    add({file(u"a.flac"_s)});
    tab().tableView->addTableColumn(u"length (min)"_s);
    tab().tableView->setHeaderView(std::make_shared<TableHeader>());
    runPosted();
    EXPECT_EQ(list().model()->columnCount(), 3);
    EXPECT_EQ(list().model()->headerData(1, Qt::Horizontal).toString(), u"length (min)"_s);
    EXPECT_TRUE(list().header()->isVisible());
    EXPECT_FALSE(list().isColumnHidden(1));
    EXPECT_TRUE(list().isColumnHidden(2));
    tab().tableView->removeTableColumnsBehind(1);
    tab().tableView->setHeaderView(nullptr);
    runPosted();
    EXPECT_EQ(list().model()->columnCount(), 2);
    EXPECT_FALSE(list().header()->isVisible());
}

TEST_F(FilesPanelTest, ColumnsThatTheTabAddsStandWholeAndTheNamesTakeTheRest)
{
    add({file(u"one/a.flac"_s), file(u"one/b.flac"_s)});
    for (const QString& header : {u"length (min)"_s, u"sample rate"_s, u"bit depth"_s})
        tab().tableView->addTableColumn(header);
    tab().tableView->setHeaderView(std::make_shared<TableHeader>());
    runPosted();
    const QHeaderView& header = *list().header();
    const auto standWhole = [&] {
        return header.sectionSize(1) >= header.sectionSizeHint(1) && header.sectionSize(3) >= header.sectionSizeHint(3);
    };
    const auto fill = [&] {
        return header.length() == list().viewport()->width() && !list().horizontalScrollBar()->isVisible();
    };
    window().resize(1000, 600);
    ASSERT_TRUE(runUntil([&] { return fill() && standWhole(); }));
    add({file(u"two/c.flac"_s)}); // with its folder
    const auto share = [&] { return std::abs(header.sectionSize(0) - header.sectionSize(4)) <= 1; };
    ASSERT_TRUE(runUntil([&] { return fill() && standWhole() && share(); }));
    window().resize(window().minimumSize());
    const int least = 16 * list().fontMetrics().averageCharWidth(); // of a name that can still be told
    ASSERT_TRUE(runUntil(
        [&] { return list().horizontalScrollBar()->maximum() > 0 && standWhole() && header.sectionSize(0) >= least; }));
}

TEST_F(FilesPanelTest, WhatTheListAmountsToIsCutToItsRoom)
{
    add({file(u"one/a.flac"_s), file(u"two/b.flac"_s)});
    auto& label = widget<QLabel>("countLabel");
    const auto fits = [&] { return label.fontMetrics().horizontalAdvance(label.text()) <= label.width(); };
    window().resize(1000, 600);
    ASSERT_TRUE(runUntil([&] { return label.text().contains(u"2 folders"); }));
    const int room = label.width();
    window().resize(window().minimumSize());
    ASSERT_TRUE(runUntil([&] { return label.width() < room; }));
    EXPECT_TRUE(fits());
    EXPECT_TRUE(label.text().startsWith(u"2 ")) << label.text().toStdString();
}

TEST_F(FilesPanelTest, TheTabIsToldWhichRowsAreSelectedAndAnAdditionKeepsThem)
{
    add({file(u"b.flac"_s), file(u"c.flac"_s)});
    int told = 0;
    tab().tableView->setAction([&] { ++told; });
    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_THAT(tab().tableView->selectedRows(), ElementsAre(0, 1));
    EXPECT_EQ(told, 1);
    add({file(u"a.flac"_s)});
    EXPECT_THAT(tab().tableView->selectedRows(), ElementsAre(1, 2));
    tab().tableView->setAction({});
}

TEST_F(FilesPanelTest, ANameThatLooksLikeMarkupIsShownAsItStands)
{
    add({file(u"<b>bold<b>.flac"_s)});
    EXPECT_TRUE(list().model()->index(0, 0).data(Qt::ToolTipRole).toString().contains(u"&lt;b&gt;bold"));
}

TEST_F(FilesPanelTest, TheMenusWorkOnTheListWhereverTheKeyboardIs)
{
    const auto trigger = [this](const char* action) {
        window().findChild<QAction*>(QString::fromLatin1(action))->trigger();
        runPosted();
    };
    add({file(u"a.flac"_s), file(u"b.flac"_s), pathOf(u"a.flac"_s)});
    ASSERT_TRUE(listBecomes(3));
    widget<QPushButton>("commandButton").setFocus();
    trigger("removeDuplicatesAction");
    EXPECT_EQ(tab().fileNames().count(), 2);
    trigger("selectAllAction");
    EXPECT_EQ(list().selectedRowNumbers().size(), 2);
    trigger("removeAction");
    EXPECT_TRUE(tab().fileNames().isEmpty());
    panels_.answerOpenPanel(QStringList{QFileInfo(file(u"sub/c.flac"_s)).path()});
    QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(listBecomes(1));
    EXPECT_TRUE(panels_.openRequests()[0].canChooseDirectories);
    trigger("clearListAction");
    EXPECT_TRUE(tab().fileNames().isEmpty());
}

TEST_F(FilesPanelTest, AFilterShowsAndSelectsOnlyWhatMatches)
{
    add({file(u"jam.flac"_s), file(u"drums.flac"_s)});
    ASSERT_TRUE(listBecomes(2));
    QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier);
    auto& field = widget<QLineEdit>("filterField");
    ASSERT_TRUE(field.isVisible());
    QTest::keyClicks(&field, u"JAM"_s);
    EXPECT_TRUE(list().isRowHidden(0, {}));
    EXPECT_FALSE(list().isRowHidden(1, {}));
    list().selectAll();
    EXPECT_THAT(list().selectedRowNumbers(), ElementsAre(1));
    EXPECT_TRUE(runUntil([this] { return countLine().startsWith(u"1 shown of 2 files"); }));
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_FALSE(field.isVisible());
    EXPECT_FALSE(list().isRowHidden(0, {}));
}

TEST_F(FilesPanelTest, DeleteTakesTheSelectedRowsOutAndKeepsThePlace)
{
    add({file(u"a.flac"_s), file(u"b.flac"_s), file(u"c.flac"_s)});
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(list().model()->index(1, 0)).center());
    QTest::keyClick(&list(), Qt::Key_Delete);
    runPosted();
    EXPECT_THAT(tab().fileNames().copy(), ElementsAre(pathOf(u"a.flac"_s), pathOf(u"c.flac"_s)));
    EXPECT_EQ(list().currentIndex().row(), 1);
    EXPECT_TRUE(QFile::exists(pathOf(u"b.flac"_s)));
}

TEST_F(FilesPanelTest, CtrlASelectsAll)
{
    add({file(u"a.flac"_s), file(u"b.flac"_s)});
    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list().selectedRowNumbers().size(), 2);
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_TRUE(tab().fileNames().isEmpty());
}

TEST_F(FilesPanelTest, TheFolderShowsOnlyWhenFilesOfSeveralAreListed)
{
    add({file(u"a.flac"_s), file(u"b.flac"_s)});
    EXPECT_TRUE(list().isColumnHidden(folderColumn()));
    EXPECT_FALSE(list().header()->isVisible());
    add({file(u"sub/c.flac"_s)});
    EXPECT_FALSE(list().isColumnHidden(folderColumn()));
    EXPECT_EQ(shown(2, folderColumn()), pathOf(u"sub"_s));
}

TEST_F(FilesPanelTest, TheFullPathIsTheToolTip)
{
    add({file(u"a.flac"_s)});
    EXPECT_TRUE(list().model()->index(0, 0).data(Qt::ToolTipRole).toString().contains(pathOf(u"a.flac"_s)));
}

TEST_F(FilesPanelTest, ALineTellsWhatTheListAmountsTo)
{
    add({file(u"a.flac"_s), file(u"sub/b.flac"_s)});
    EXPECT_TRUE(runUntil([this] { return countLine() == u"2 files, 20 bytes, 2 folders"; }))
        << countLine().toStdString();
    QTest::mouseClick(&widget<QPushButton>("clearButton"), Qt::LeftButton);
    EXPECT_TRUE(runUntil([this] { return countLine().isEmpty(); }));
    EXPECT_TRUE(tab().fileNames().isEmpty());
}

TEST_F(FilesPanelTest, CtrlOAsksForFilesAndAddsThem)
{
    panels_.answerOpenPanel(QStringList{file(u"a.flac"_s)});
    QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(tab().fileNames().count(), 1);
}

TEST_F(FilesPanelTest, ANameWithALineEndStaysOneRow)
{
    add({file(u"a\nb.flac"_s)});
    EXPECT_EQ(shown(0), u"a b.flac"_s);
}

TEST_F(FilesPanelTest, ARefusedDropIsToldInOneAlert)
{
    panels_.answerAlert(alertReply::defaultButton);
    dropOn(*list().viewport(), {pathOf(u"a.txt"_s), file(u"b.jpg"_s)});
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_EQ(panels_.alerts()[0].title, u"File types not supported by this tab"_s);
}

TEST_F(FilesPanelTest, AFilterLeavesOfManySelectedRowsThoseInSightAndTellsOnce)
{
    QStringList files;
    for (int track = 0; track < 40; ++track)
        files += file(u"track%1%2.flac"_s.arg(track, 2, 10, QChar(u'0')).arg(track % 2 ? u"odd"_s : u"even"_s));
    add(files);
    ASSERT_TRUE(listBecomes(40));
    list().selectAll();
    QSignalSpy told(list().selectionModel(), &QItemSelectionModel::selectionChanged);
    widget<QLineEdit>("filterField").setText(u"odd"_s);
    EXPECT_EQ(told.size(), 1);
    const QList<qsizetype> rows = tab().tableView->selectedRows();
    ASSERT_EQ(rows.size(), 20);
    EXPECT_EQ(rows.first(), 1);
    EXPECT_EQ(rows.last(), 39);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_TRUE(listBecomes(20));
    EXPECT_FALSE(tab().fileNames().copy().join(u' ').contains(u"odd"_s));
}

TEST_F(FilesPanelTest, SelectingOtherRowsTellsOnceAndDrawsThem)
{
    add({file(u"a.flac"_s), file(u"b.flac"_s), file(u"c.flac"_s)});
    ASSERT_TRUE(listBecomes(3));
    list().selectRowNumbers({0, 1});
    QSignalSpy told(list().selectionModel(), &QItemSelectionModel::selectionChanged);
    list().selectOnly({2});
    EXPECT_EQ(told.size(), 1);
    EXPECT_THAT(list().selectedRowNumbers(), ElementsAre(2));
    list().selectOnly({});
    EXPECT_EQ(told.size(), 2);
    EXPECT_TRUE(tab().tableView->selectedRows().isEmpty());
}

TEST_F(FilesPanelTest, RowsSelectedInPiecesAreToldAscendingAndOnce)
{
    QStringListModel model({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    QListView view;
    view.setModel(&model);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    EXPECT_TRUE(selectedRows(view).isEmpty());
    for (const int row : {3, 0, 1, 0})
        view.selectionModel()->select(model.index(row), QItemSelectionModel::Select);
    EXPECT_THAT(selectedRows(view), ElementsAre(0, 1, 3));
}

TEST_F(FilesPanelTest, ColumnsOfALongListFitBesideItsScrollBar)
{
    QStringList files;
    for (int track = 0; track < 60; ++track)
        files += file(u"disc%1/track%2.flac"_s.arg(track % 2).arg(track));
    add(files);
    ASSERT_TRUE(listBecomes(60));
    ASSERT_TRUE(runUntil([this] { return list().verticalScrollBar()->maximum() > 0; }));
    EXPECT_EQ(list().horizontalScrollBar()->maximum(), 0);
    window().resize(window().width() + 60, window().height());
    EXPECT_TRUE(runUntil([this] { return list().header()->length() == list().viewport()->width(); }));
}

TEST_F(FilesPanelTest, NamesBesideASignAndWithoutOneBeginAtOneEdge)
{
    add({file(u"a.flac"_s), file(u"b.flac"_s)});
    ASSERT_TRUE(listBecomes(2));
    const auto left = [this](int row) {
        const QRect place = list().visualRect(list().model()->index(row, 0));
        const QImage picture = list().viewport()->grab(place).toImage();
        const int icon = list().iconSize().width() + 8; // behind the sign, where there is one
        const QColor plain = picture.pixelColor(picture.width() - 1, picture.height() / 2);
        for (int x = icon; x < picture.width(); ++x) {
            for (int y = 1; y < picture.height() - 1; ++y) {
                if (picture.pixelColor(x, y) != plain) return x;
            }
        }
        return -1;
    };
    const QImage bare = list().viewport()->grab(list().visualRect(list().model()->index(1, 0))).toImage();
    window().page()->files()->setMarks({{0, u"It is damaged"_s}}, {});
    EXPECT_NEAR(left(0), left(1), 2); // the letters differ
    EXPECT_NE(list().viewport()->grab(list().visualRect(list().model()->index(1, 0))).toImage(), bare);
}

} // namespace
} // namespace zolt::test
