#include "ui/binding/Bindings.h"

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/ScrollView.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"
#include "platform/controls/Table.h"
#include "platform/controls/TextField.h"
#include "platform/controls/TextView.h"
#include "platform/errors/Exceptions.h"
#include "platform/images/Image.h"
#include "shell/ZOLTDragAndDropImageView.h"
#include "support/EventLoop.h"
#include "support/ScriptedPanels.h"
#include "ui/Drags.h"
#include "ui/binding/PictureView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class BindingsTest : public testing::Test
{
protected:
    /// A widget of that kind, bound to the model; the page is up.
    template <class Widget, class Model> Widget& bound(const std::shared_ptr<Model>& model)
    {
        auto* const widget = new Widget(&page_);
        widget->setObjectName(u"outlet"_s);
        widget->resize(200, 40);
        model->setAction([this] { ++actions_; });
        Bindings bindings(page_);
        bindings.setChanged([this] { ++changes_; });
        bindings.bind(Outlet{u"outlet"_s, model});
        page_.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page_));
        return *widget;
    }
    QWidget page_;
    int actions_ = 0;
    int changes_ = 0;
};

TEST_F(BindingsTest, ASliderMovesInStepsBothWays)
{
    const auto model = std::make_shared<Slider>(1000, 5000, 2000, 1000);
    auto& slider = bound<QSlider>(model);
    EXPECT_EQ(slider.maximum(), 4);
    EXPECT_EQ(slider.value(), 1);
    QTest::keyClick(&slider, Qt::Key_Up);
    EXPECT_EQ(model->stringValue(), u"3000"_s);
    EXPECT_EQ(actions_, 1);
    model->setIntValue(5000);
    runPosted();
    EXPECT_EQ(slider.value(), 4);
    EXPECT_EQ(actions_, 1);
    EXPECT_GE(changes_, 1);
}

TEST_F(BindingsTest, AStepperTakesStepsAndTypedNumbers)
{
    const auto model = std::make_shared<Stepper>(0, 127, 88);
    auto& box = bound<QSpinBox>(model);
    EXPECT_EQ(box.value(), 88);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(model->intValue(), 87);
    box.selectAll();
    QTest::keyClicks(&box, u"12"_s);
    EXPECT_EQ(model->intValue(), 12);
    const int used = actions_;
    model->setIntValue(5);
    runPosted();
    EXPECT_EQ(box.value(), 5);
    EXPECT_EQ(actions_, used);
}

TEST_F(BindingsTest, AComboBoxIsTypedInOrChosenFrom)
{
    const auto model = std::make_shared<ComboBox>(QStringList{u"128"_s, u"160"_s}, u"160"_s);
    struct Editable : QComboBox
    {
        explicit Editable(QWidget* parent) : QComboBox(parent) { setEditable(true); }
    };
    auto& box = bound<Editable>(model);
    EXPECT_EQ(box.currentText(), u"160"_s);
    box.lineEdit()->selectAll();
    QTest::keyClicks(box.lineEdit(), u"200"_s);
    EXPECT_EQ(model->intValue(), 200);
    EXPECT_EQ(actions_, 3);
    model->setItems({u"1"_s, u"2"_s});
    model->selectIndex(1);
    runPosted();
    EXPECT_EQ(box.count(), 2);
    EXPECT_EQ(box.currentText(), u"2"_s);
}

TEST_F(BindingsTest, AButtonPressesItsModel)
{
    const auto model = std::make_shared<Button>();
    auto& button = bound<QPushButton>(model);
    model->setTitle(u"Names"_s);
    runPosted();
    EXPECT_EQ(button.text(), u"Names"_s);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(actions_, 1);
}

TEST_F(BindingsTest, ATitleThatWasGivenAKeyKeepsIt)
{
    const auto model = std::make_shared<CheckBox>(u"Keep it"_s);
    auto& box = bound<QCheckBox>(model);
    box.setText(u"&Keep it"_s);
    model->setState(true);
    runPosted();
    EXPECT_EQ(box.text(), u"&Keep it"_s);
    EXPECT_TRUE(box.isChecked());
}

TEST_F(BindingsTest, AMatrixIsBuiltFromTheTitlesOfItsModel)
{
    const auto model = std::make_shared<Matrix>(2, 2, QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    auto& group = bound<QWidget>(model);
    const auto buttons = group.findChildren<QRadioButton*>();
    ASSERT_EQ(buttons.size(), 4);
    EXPECT_EQ(buttons[2]->text(), u"c"_s);
    EXPECT_LT(buttons[1]->x(), group.width());
    EXPECT_GT(buttons[1]->x(), buttons[0]->x());
    EXPECT_GT(buttons[2]->y(), buttons[0]->y());
    QTest::mouseClick(buttons[3], Qt::LeftButton, {}, QPoint(6, buttons[3]->height() / 2));
    EXPECT_EQ(model->selectedIndex(), 3);
    model->deselectAllCells();
    runPosted();
    for (const auto* button : buttons)
        EXPECT_FALSE(button->isChecked());
    model->setCellEnabled(0, 1, false);
    runPosted();
    EXPECT_FALSE(buttons[1]->isEnabled());
}

TEST_F(BindingsTest, AMatrixOfBoxesTurnsEachByItself)
{
    const auto model = std::make_shared<Matrix>(1, 2, QStringList{u"a"_s, u"b"_s}, Matrix::Mode::Check);
    auto& group = bound<QWidget>(model);
    const auto boxes = group.findChildren<QCheckBox*>();
    ASSERT_EQ(boxes.size(), 2);
    for (auto* box : boxes)
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
    EXPECT_TRUE(model->cellAt(0, 0).state && model->cellAt(0, 1).state);
    EXPECT_TRUE(boxes[0]->isChecked() && boxes[1]->isChecked());
}

TEST_F(BindingsTest, ATextViewShowsAndTakesText)
{
    const auto model = std::make_shared<TextView>();
    model->setString(u"<b>one</b>"_s);
    auto& view = bound<QPlainTextEdit>(model);
    EXPECT_EQ(view.toPlainText(), u"<b>one</b>"_s);
    QTest::keyClicks(&view, u"x"_s);
    EXPECT_EQ(model->string(), u"x<b>one</b>"_s);
    EXPECT_EQ(actions_, 1);
}

class Letters : public TableDataSource
{
public:
    qsizetype numberOfRowsInTableView() const override { return rows; }
    QString tableViewObjectValueForTableColumnRow(int column, qsizetype row) const override
    {
        return u"abc"_s.mid(row, 1).repeated(column + 1);
    }
    qsizetype rows = 3;
};

TEST_F(BindingsTest, ATableShowsItsSourceAndTellsWhatIsSelected)
{
    Letters letters;
    const auto model = std::make_shared<Table>();
    model->setDataSource(&letters);
    auto& view = bound<QTreeView>(model);
    view.setSelectionMode(QTreeView::ExtendedSelection);
    EXPECT_EQ(view.model()->index(2, 0).data().toString(), u"c"_s);
    EXPECT_TRUE(view.isHeaderHidden());
    model->addTableColumn(u"twice"_s);
    model->setHeaderView(std::make_shared<TableHeader>());
    runPosted();
    EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), u"twice"_s);
    EXPECT_EQ(view.model()->index(2, 1).data().toString(), u"cc"_s);
    EXPECT_FALSE(view.isHeaderHidden());
    view.selectAll();
    EXPECT_THAT(model->selectedRows(), ElementsAre(0, 1, 2));
    EXPECT_EQ(actions_, 1);
    letters.rows = 1;
    model->reloadData();
    runPosted();
    EXPECT_EQ(view.model()->rowCount(), 1);
    EXPECT_THAT(model->selectedRows(), ElementsAre());
    model->setDataSource(nullptr);
}

TEST_F(BindingsTest, AScrolledViewTakesAPlaceThatIsNamedAndKeepsItsOwnWithoutOne)
{
    const auto model = std::make_shared<ScrollView>();
    auto& view = bound<QTreeView>(model);
    const QRect own = view.geometry();
    model->display();
    runPosted();
    EXPECT_EQ(view.geometry(), own);
    model->setFrame({4, 6, 210, 120});
    runPosted();
    EXPECT_EQ(view.geometry(), QRect(4, 6, 210, 120));
}

TEST_F(BindingsTest, APictureIsDroppedAndTakenAway)
{
    const ScriptedPanels panels;
    const QTemporaryDir folder;
    QImage red(4, 4, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(folder.filePath(u"red.png"_s)));
    const auto model = std::make_shared<ZOLTDragAndDropImageView>();
    auto& view = bound<PictureView>(std::static_pointer_cast<ImageView>(model));
    EXPECT_FALSE(dragOver(view, {folder.path()}));
    EXPECT_EQ(dropOn(view, {folder.filePath(u"red.png"_s)}), Qt::CopyAction);
    ASSERT_NE(model->image(), nullptr);
    EXPECT_EQ(actions_, 1);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(model->image(), nullptr);
    EXPECT_EQ(actions_, 2);
}

TEST_F(BindingsTest, APictureShowsThatItHasTheKeyboard)
{
    auto& view = bound<PictureView>(std::make_shared<ImageView>());
    view.clearFocus();
    const QImage without = view.grab().toImage();
    view.setFocus();
    EXPECT_NE(view.grab().toImage(), without);
}

TEST_F(BindingsTest, AProposalIsTypedOverAndWhatIsMerelyShownIsNotMarked)
{
    const auto model = std::make_shared<TextField>();
    model->setStringValue(u"proposed"_s);
    auto& line = bound<QLineEdit>(model);
    EXPECT_EQ(line.selectedText(), u"proposed"_s);
    line.clearFocus();
    model->setStringValue(u"shown"_s);
    runPosted();
    EXPECT_EQ(line.text(), u"shown"_s);
    EXPECT_FALSE(line.hasSelectedText());
}

TEST_F(BindingsTest, ATextInALabelIsNeverMarkup)
{
    const auto model = std::make_shared<TextField>(TextField::labelStyle());
    model->setStringValue(u"<b>bold</b>"_s);
    EXPECT_EQ(bound<QLabel>(model).textFormat(), Qt::PlainText);
}

TEST_F(BindingsTest, AGreyedControlSaysWhy)
{
    const auto model = std::make_shared<CheckBox>();
    auto& box = bound<QCheckBox>(model);
    box.setProperty("whyDisabled", u"Only with FLAC"_s);
    model->setEnabled(false);
    runPosted();
    EXPECT_FALSE(box.isEnabled());
    EXPECT_EQ(box.toolTip(), u"Only with FLAC"_s);
}

TEST_F(BindingsTest, AWidgetOfAnotherKindIsRefused)
{
    (new QLabel(&page_))->setObjectName(u"outlet"_s);
    EXPECT_THROW(Bindings(page_).bind(u"outlet"_s, std::make_shared<Slider>(0, 1, 0)), AssertionException);
    EXPECT_THROW(Bindings(page_).bind(u"none"_s, std::make_shared<Slider>(0, 1, 0)), AssertionException);
}

} // namespace
} // namespace zolt::test
