#include "platform/controls/Table.h"

#include "platform/controls/Button.h"
#include "platform/controls/ImageView.h"
#include "platform/controls/TabView.h"
#include "platform/controls/TextField.h"
#include "platform/controls/TextView.h"
#include "platform/errors/Exceptions.h"

using namespace zolt;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Rows : public TableDataSource
{
public:
    qsizetype numberOfRowsInTableView() const override { return count; }
    QString tableViewObjectValueForTableColumnRow(int column, qsizetype row) const override
    {
        return QStringLiteral("%1/%2").arg(column).arg(row);
    }
    qsizetype count = 5;
};

class TableTest : public testing::Test
{
protected:
    TableTest()
    {
        table.setDataSource(&rows);
        table.setAction([this] { ++actions; });
    }
    Rows rows;
    Table table;
    int actions = 0;
};

} // namespace

TEST_F(TableTest, SelectedRowsStandInOrder)
{
    table.setSelectedRows({3, 1});
    EXPECT_THAT(table.selectedRows(), ElementsAre(1, 3));
    EXPECT_EQ(table.numberOfSelectedRows(), 2);
    EXPECT_EQ(table.selectedRow(), 3);
    EXPECT_TRUE(table.isRowSelected(1));
    EXPECT_FALSE(table.isRowSelected(2));
    EXPECT_EQ(actions, 0);
}

TEST_F(TableTest, APersonsSelectionIsToldWhenItIsAnother)
{
    table.selectRows({2});
    table.selectRows({2});
    EXPECT_EQ(actions, 1);
    table.selectRows({});
    EXPECT_EQ(actions, 2);
    EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(TableTest, RowsThatWentAreNotSelected)
{
    table.selectRows({1, 4});
    rows.count = 2;
    EXPECT_THAT(table.selectedRows(), ElementsAre(1));
    table.setDataSource(nullptr);
    EXPECT_THAT(table.selectedRows(), IsEmpty());
}

TEST_F(TableTest, ColumnsGrowAndShrink)
{
    EXPECT_EQ(table.columns(), std::vector<TableColumn>{TableColumn()});
    EXPECT_FALSE(table.showsHeader());
    table.setColumnHeader(0, u"name"_s);
    table.addTableColumn(u"length"_s);
    table.addTableColumn(u"rate"_s);
    EXPECT_EQ(table.columns(), (std::vector<TableColumn>{{u"name"_s}, {u"length"_s}, {u"rate"_s}}));
    table.removeTableColumnsBehind(1);
    table.removeTableColumnsBehind(1);
    EXPECT_EQ(table.columns(), std::vector<TableColumn>{{u"name"_s}});
    EXPECT_THROW(table.setColumnHeader(1, u"none"_s), RangeException);
}

TEST_F(TableTest, AHeaderIsTakenOffAndPutBack)
{
    const auto header = std::make_shared<TableHeader>();
    table.setHeaderView(header);
    EXPECT_EQ(table.headerView(), header);
    EXPECT_TRUE(table.showsHeader());
    table.setHeaderView(nullptr);
    EXPECT_FALSE(table.showsHeader());
}

TEST(TypedText, ReachesFieldAndActionUnlessDisabled)
{
    TextField field;
    int actions = 0;
    field.setAction([&] { ++actions; });
    field.enterText(u"12 files"_s);
    EXPECT_EQ(field.intValue(), 12);
    field.setEnabled(false);
    field.enterText(u"13"_s);
    EXPECT_EQ(field.stringValue(), u"12 files"_s);
    EXPECT_EQ(actions, 1);
    field.setIntValue(-4);
    EXPECT_EQ(field.stringValue(), u"-4"_s);
}

TEST(TypedText, ReachesTheViewWithItsSelection)
{
    TextView view;
    int actions = 0;
    view.setAction([&] { ++actions; });
    view.enterText(u"one\ntwo"_s);
    view.setSelectedRange({4, 3});
    EXPECT_EQ(view.string(), u"one\ntwo"_s);
    EXPECT_EQ(view.selectedRange(), (TextSelection{4, 3}));
    EXPECT_EQ(actions, 1);
}

TEST(Clicks, RunTheActionOfAnEnabledControlAlone)
{
    Button button;
    ImageView picture;
    int actions = 0;
    button.setAction([&] { ++actions; });
    picture.setAction([&] { actions += 10; });
    button.click();
    picture.replaceImage(nullptr);
    EXPECT_EQ(actions, 11);
    button.setEnabled(false);
    picture.setEnabled(false);
    button.click();
    picture.replaceImage(nullptr);
    EXPECT_EQ(actions, 11);
}

TEST(TabViews, AreSelectedByLabelToo)
{
    TabView view;
    view.addTabViewItem(std::make_shared<TabViewItem>(u"a"_s));
    view.addTabViewItem(std::make_shared<TabViewItem>(u"b"_s));
    view.selectTabViewItemWithLabel(u"b"_s);
    EXPECT_EQ(view.selectedIndex(), 1);
    view.selectTabViewItemWithLabel(u"c"_s);
    EXPECT_EQ(view.selectedIndex(), 1);
}
