#include "shell/DockMenuController.h"
#include "shell/ZOLTDragAndDropImageView.h"

#include "platform/files/Files.h"
#include "support/test.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class MenuItem : public Control
{
};

class DroppedImage : public testing::Test
{
protected:
    QTemporaryDir directory_;
    ZOLTDragAndDropImageView view_;
};

} // namespace

TEST(DockMenu, HandsItsItemToTheDelegate)
{
    Sender seen = nullptr;
    const DockMenuController menu([&](Sender sender) { seen = sender; });
    MenuItem item;
    item.setTag(4);
    menu.selectTab(&item);
    ASSERT_EQ(seen, &item);
    EXPECT_EQ(seen->tag(), 4);
}

TEST(DockMenu, WithNoDelegateNothingHappens)
{
    MenuItem item;
    DockMenuController(nullptr).selectTab(&item);
}

TEST_F(DroppedImage, OneFileIsTaken)
{
    const QString file = directory_.filePath(u"cover.png"_s);
    ASSERT_TRUE(writeTextAtomically(file, u"x"_s));
    EXPECT_EQ(view_.draggingEntered(QStringList{file}), 1);
}

TEST_F(DroppedImage, AFolderOrALinkToOneIsRefused)
{
    EXPECT_EQ(view_.draggingEntered(QStringList{directory_.path()}), 0);
    const QString link = directory_.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(directory_.path(), link));
    EXPECT_EQ(view_.draggingEntered(QStringList{link}), 0);
}

TEST_F(DroppedImage, TwoFilesNoFilesAndOtherThingsAreRefused)
{
    EXPECT_EQ(view_.draggingEntered(QStringList{u"/a.png"_s, u"/b.png"_s}), 0);
    EXPECT_EQ(view_.draggingEntered(QStringList{}), 0);
    EXPECT_EQ(view_.draggingEntered(std::nullopt), 0);
}
