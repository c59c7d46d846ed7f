// The Tags tab as a person meets it.
#include "platform/files/FileNames.h"
#include "platform/files/NamedFile.h"
#include "platform/threads/MainQueue.h"
#include "tags/TagFiles.h"
#include "tags/TagRoutes.h"
#include "tags/TagsTab.h"
#include "ui/Drags.h"
#include "ui/WindowFixture.h"
#include "ui/binding/PictureView.h"
#include "ui/files/FileListView.h"
#include "ui/files/FilesPanel.h"
#include "ui/pages/OutlookLine.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class TagsPageTest : public WindowTest
{
protected:
    TagsPageTest()
    {
        tags().setUndoFolder(pathOf(u"cache"_s));
        controller().tabView->selectTabViewItemAtIndex(tagsIndex());
        runPosted();
    }

    int tagsIndex()
    {
        const auto& items = controller().tabView->items();
        const auto found =
            std::find_if(items.begin(), items.end(), [](const auto& item) { return item->label() == u"Tags"; });
        return int(found - items.begin());
    }
    TagsTab& tags() { return program_.program().tab<TagsTab>(); }
    FileListView& view() { return window().page()->files()->list(); }
    QLineEdit& line(const char* name) { return widget<QLineEdit>(name); }
    QAction& action(const char* name) { return *window().findChild<QAction*>(QString::fromLatin1(name)); }

    /// Copies of one FLAC file, each with its name as its title.
    QStringList list(const QStringList& names)
    {
        QStringList paths;
        for (const QString& name : names) {
            paths += pathOf(name + u".flac"_s);
            writeContent(paths.last(), contentOf(samples_.flac()));
            TagsObject title;
            title.setTitleText(name);
            tagRouteFor(paths.last())->write(paths.last(), title, false);
        }
        tags().addFiles(paths);
        runPosted();
        return paths;
    }
    void select(const QList<qsizetype>& rows)
    {
        view().selectRowNumbers(rows);
        runPosted();
    }
    void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        widget.setFocus();
        QTest::keyClick(&widget, key, modifiers);
        runPosted();
    }
    QString picture() { return samples_.picture("png"); }
    QString result() { return widget<QLabel>("resultLabel").text(); }

    TagFiles samples_;
};

TEST_F(TagsPageTest, TheFileBelowARemovedOneIsShown)
{
    list({u"a"_s, u"b"_s, u"c"_s});
    select({0});
    EXPECT_EQ(line("titleText").text(), u"a"_s);
    press(view(), Qt::Key_Delete);
    EXPECT_EQ(tags().fileNames().count(), 2);
    EXPECT_EQ(line("titleText").text(), u"b"_s);
}

TEST_F(TagsPageTest, ItCannotBePressedUntilSomethingIsSelected)
{
    const auto& button = *window().page()->findChild<QPushButton*>(u"commandButton"_s);
    EXPECT_EQ(button.toolTip(), u"Add files first"_s);
    list({u"a"_s, u"b"_s});
    view().clearSelection();
    EXPECT_FALSE(button.isEnabled());
    EXPECT_EQ(button.toolTip(), u"Select the files to be written first"_s);
    select({1});
    EXPECT_TRUE(button.isEnabled());
    view().clearSelection();
    EXPECT_FALSE(button.isEnabled());
    tags().clearFiles();
    EXPECT_TRUE(runUntil([&] { return button.toolTip() == u"Add files first"_s; }));
}

TEST_F(TagsPageTest, ALongTitleIsShownFromItsStart)
{
    list({QString(60, u'a') + QString(60, u'b')});
    view().setFocus();
    select({0});
    EXPECT_EQ(line("titleText").text().size(), 120);
    EXPECT_EQ(line("titleText").cursorPosition(), 0);
}

TEST_F(TagsPageTest, TypedTextStaysWhenAFileComesInAhead)
{
    list({u"b"_s, u"c"_s});
    select({0, 1});
    line("artistText").setFocus();
    QTest::keyClicks(&line("artistText"), u"Anna"_s);
    list({u"a"_s});
    EXPECT_THAT(tags().tableView->selectedRows(), ElementsAre(1, 2));
    EXPECT_EQ(line("artistText").text(), u"Anna"_s);
    EXPECT_EQ(widget<QLabel>("multipleSelectionsLabel").text(), u"multiple selections"_s);
}

TEST_F(TagsPageTest, AClearedListLeavesNothingOfAFile)
{
    list({u"a"_s});
    select({0});
    QTest::mouseClick(&widget<QPushButton>("clearButton"), Qt::LeftButton);
    runPosted();
    EXPECT_EQ(line("titleText").text(), QString());
    EXPECT_FALSE(line("titleText").isEnabled());
    EXPECT_EQ(line("titleText").toolTip(), u"For one selected file only"_s);
}

TEST_F(TagsPageTest, OneOfTwoEqualRowsStaysSelectedAlone)
{
    const QStringList files = list({u"a"_s});
    tags().addFiles(files);
    runPosted();
    select({1});
    list({u"b"_s});
    EXPECT_THAT(tags().tableView->selectedRows(), ElementsAre(1));
}

TEST_F(TagsPageTest, WhatTheFilterHidesIsNotWritten)
{
    list({u"apple"_s, u"berry"_s});
    select({0, 1});
    window().page()->files()->openFilter();
    widget<QLineEdit>("filterField").setText(u"berry"_s);
    runPosted();
    EXPECT_THAT(tags().tableView->selectedRows(), ElementsAre(1));
    EXPECT_EQ(line("titleText").text(), u"berry"_s);
}

TEST_F(TagsPageTest, APictureIsDroppedOnTheCoverNotOnTheList)
{
    auto& cover = widget<PictureView>("albumArtImageView");
    EXPECT_EQ(dropOn(cover, {picture()}), Qt::CopyAction);
    EXPECT_TRUE(tags().albumArtImageView->image());
    EXPECT_TRUE(tags().fileNames().isEmpty());
}

TEST_F(TagsPageTest, DeleteOnTheCoverTakesTheCoverAndNoFile)
{
    list({u"a"_s});
    select({0});
    tags().albumArtImageView->replaceImage(Image::fromData(contentOf(picture())));
    press(widget<PictureView>("albumArtImageView"), Qt::Key_Delete);
    EXPECT_FALSE(tags().albumArtImageView->image());
    EXPECT_EQ(tags().fileNames().count(), 1);
}

TEST_F(TagsPageTest, APictureIsPasted)
{
    auto& cover = widget<PictureView>("albumArtImageView");
    QApplication::clipboard()->setText(u"no picture"_s);
    panels_.answerAlert(alertReply::defaultButton);
    press(cover, Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(tags().albumArtImageView->image());
    QApplication::clipboard()->setImage(QImage(picture()));
    press(cover, Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(tags().albumArtImageView->image());
    EXPECT_EQ(tags().albumArtImageView->image()->shown().pixelsWide(), 60);
    EXPECT_TRUE(runUntil([this] { return widget<QLabel>("coverFacts").text().startsWith(u"PNG, 60 × 40, "_s); }));
}

TEST_F(TagsPageTest, APictureThatIsBrokenIsRefusedByNameAndTheOneThatIsThereStays)
{
    auto& cover = widget<PictureView>("albumArtImageView");
    tags().albumArtImageView->replaceImage(Image::fromData(contentOf(picture())));
    const QString broken = pathOf(nameOfBytes("broken\xe9.png"));
    NamedFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(contentOf(picture()).first(60));
    file.close();
    panels_.answerAlert(alertReply::defaultButton);
    panels_.answerOpenPanel(QStringList{broken});
    press(cover, Qt::Key_Return);
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_EQ(panels_.alerts().front().title, u"brokené.png is not a picture that can be shown"_s);
    ASSERT_TRUE(tags().albumArtImageView->image());
    EXPECT_EQ(tags().albumArtImageView->image()->shown().pixelsWide(), 60);
}

TEST_F(TagsPageTest, APictureWithANameOfOtherBytesIsTaken)
{
    const QString path = pathOf(nameOfBytes("cover\xe9.png"));
    NamedFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(contentOf(picture()));
    file.close();
    panels_.answerOpenPanel(QStringList{path});
    press(widget<PictureView>("albumArtImageView"), Qt::Key_Return);
    EXPECT_TRUE(tags().albumArtImageView->image());
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(TagsPageTest, AMegabyteOfTextStaysWholeWhenAPersonTypesInIt)
{
    list({u"a"_s});
    select({0});
    const QString before(1'000'000, u'x');
    tags().titleText->setStringValue(before);
    runPosted();
    line("titleText").end(false);
    QTest::keyClicks(&line("titleText"), u"!"_s);
    EXPECT_TRUE(tags().titleText->stringValue() == before + u'!') << tags().titleText->stringValue().size();
}

TEST_F(TagsPageTest, WhatWipesAndWhatNamesIsNotKeptForTheNextStart)
{
    list({u"a"_s});
    select({0});
    tags().setAutoName(true);
    tags().setWriteEmptyTags(true);
    EXPECT_TRUE(runUntil([this] { return widget<OutlookLine>("outlook").text().contains(u"will be emptied"); }))
        << widget<OutlookLine>("outlook").text().toStdString();
    for (const QString& box : {u"autoNameButton"_s, u"writeEmptyTagsButton"_s})
        EXPECT_EQ(UserDefaults::standard().stringForKey(u"page.Tags."_s + box), QString());
}

TEST_F(TagsPageTest, TheCueSheetItemNeedsTheTabInFront)
{
    EXPECT_EQ(action("loadCueSheetAction").text().remove(u'&'), u"Load Tags From CUE Sheet..."_s);
    EXPECT_TRUE(action("loadCueSheetAction").isEnabled());
    QFile sheet(pathOf(u"show.cue"_s));
    ASSERT_TRUE(sheet.open(QIODevice::WriteOnly));
    sheet.write("TITLE \"Barn\"\nTRACK 01 AUDIO\nTITLE One\n");
    sheet.close();
    panels_.answerOpenPanel(QStringList{sheet.fileName()});
    action("loadCueSheetAction").trigger();
    EXPECT_EQ(tags().albumText->stringValue(), u"Barn"_s);
    program_.selectTab(0);
    runPosted();
    EXPECT_FALSE(action("loadCueSheetAction").isEnabled());
    EXPECT_FALSE(action("undoWriteAction").isEnabled());
}

TEST_F(TagsPageTest, FieldsThatDifferAreMarkedAndStayEmpty)
{
    const QStringList files = list({u"a"_s, u"b"_s});
    for (const QString& file : files) {
        TagsObject same;
        same.setAlbumText(u"Barn"_s);
        same.setCommentText(file);
        tagRouteFor(file)->write(file, same, false);
    }
    select({0, 1});
    EXPECT_TRUE(runUntil([this] { return line("titleText").placeholderText() == u"differs"; }));
    EXPECT_EQ(widget<QPlainTextEdit>("commentText").placeholderText(), u"differs"_s);
    EXPECT_EQ(line("albumText").placeholderText(), QString());
    EXPECT_EQ(line("titleText").text(), QString());
    EXPECT_EQ(line("titleText").accessibleDescription(), u"differs"_s);
    const QPalette disabled = line("titleText").palette();
    EXPECT_EQ(disabled.color(QPalette::Disabled, QPalette::PlaceholderText),
              disabled.color(QPalette::Active, QPalette::PlaceholderText));
    select({0});
    EXPECT_TRUE(runUntil([this] { return line("titleText").placeholderText().isEmpty(); }));
}

TEST_F(TagsPageTest, ACommentKeepsItsLineEndsUntilItIsTypedIn)
{
    const QStringList files = list({u"a"_s});
    TagsObject comment;
    comment.setCommentText(u"one\r\ntwo"_s);
    tagRouteFor(files[0])->write(files[0], comment, false);
    select({0});
    auto& box = widget<QPlainTextEdit>("commentText");
    EXPECT_EQ(box.toPlainText(), u"one\ntwo"_s);
    EXPECT_EQ(tags().commentText->stringValue(), u"one\r\ntwo"_s);
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, u"!"_s);
    EXPECT_EQ(tags().commentText->stringValue(), u"one\ntwo!"_s);
}

TEST_F(TagsPageTest, UndoWriteGivesTheFilesTheirBytesBack)
{
    const QStringList files = list({u"a"_s, u"b"_s});
    const QList<QByteArray> before{contentOf(files[0]), contentOf(files[1])};
    select({0, 1});
    EXPECT_FALSE(tags().canUndoWrite());
    QTest::keyClicks(&line("artistText"), u"Anna"_s);
    QTest::keyClick(&window(), Qt::Key_Return, Qt::ControlModifier);
    runPosted();
    EXPECT_EQ(result(), u"2 of 2 files written."_s);
    EXPECT_NE(contentOf(files[0]), before[0]);
    QMetaObject::invokeMethod(window().findChild<QMenu*>(u"editMenu"_s), "aboutToShow");
    ASSERT_TRUE(action("undoWriteAction").isEnabled());
    action("undoWriteAction").trigger();
    runPosted();
    EXPECT_EQ(contentOf(files[0]), before[0]);
    EXPECT_EQ(contentOf(files[1]), before[1]);
    EXPECT_EQ(result(), u"2 of 2 files put back."_s);
    QMetaObject::invokeMethod(window().findChild<QMenu*>(u"editMenu"_s), "aboutToShow");
    EXPECT_FALSE(action("undoWriteAction").isEnabled());
}

TEST_F(TagsPageTest, TheSizesOfTheFilesAreAddedUpAnewBehindARun)
{
    list({u"a"_s});
    select({0});
    auto& facts = widget<QLabel>("countLabel");
    ASSERT_TRUE(runUntil([&] { return facts.text().startsWith(u"1 file, "); }));
    const QString before = facts.text();
    tags().commentText->enterText(QString(100000, u'x'));
    QTest::keyClick(&window(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(runUntil([&] { return facts.text() != before; })) << before.toStdString();
}

/// Notes what a label shows each time that it is painted, and clicks where somebody impatient would.
class PaintWatch : public QObject
{
public:
    PaintWatch(QLabel& label, QWidget& clicked) : label_(label), clicked_(clicked) { label.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Paint) return false;
        painted += label_.text();
        if (!label_.text().startsWith(u"Writing")) return false;
        for (int others = 0; others < 5; ++others)
            postToMain([] {});
        const QPointF place(clicked_.rect().center()), on = clicked_.mapToGlobal(place);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(&clicked_,
                                        new QMouseEvent(type, place, on, Qt::LeftButton, Qt::LeftButton, {}));
        return false;
    }
    QSet<QString> painted;

private:
    QLabel& label_;
    QWidget& clicked_;
};

TEST_F(TagsPageTest, FiveHundredFilesAreWrittenWithThePageRepaintedBetweenAnyTwo)
{
    constexpr int count = 500;
    QStringList files;
    for (int i = 0; i < count; ++i)
        files += pathOf(u"%1.flac"_s.arg(i, 3, 10, QChar(u'0')));
    for (const QString& file : files)
        writeContent(file, contentOf(samples_.flac()));
    tags().addFiles(files);
    ASSERT_TRUE(runUntil([this] { return !tags().isTakingIn() && tags().fileNames().count() == count; }));
    runPosted();
    window().page()->files()->selectAll();
    runPosted();
    tags().artistText->enterText(u"Anna"_s);
    PaintWatch watch(widget<QLabel>("resultLabel"), widget<QPushButton>("clearButton"));
    window().page()->pressCommand();
    EXPECT_EQ(tags().lastRun().written(), count);
    for (int i = 1; i <= count; ++i)
        EXPECT_TRUE(watch.painted.contains(u"Writing %1 of %2 files..."_s.arg(i).arg(count))) << i;
    QCoreApplication::processEvents();
    EXPECT_EQ(tags().fileNames().count(), count) << "clicks during the run are dropped";
    EXPECT_EQ(result(), u"500 of 500 files written."_s);
}

} // namespace
} // namespace zolt::test
