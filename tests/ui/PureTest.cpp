#include "ui/GuardedApplication.h"
#include "ui/OutcomeColours.h"
#include "ui/Pictures.h"
#include "ui/PlainText.h"
#include "ui/Symbols.h"
#include "ui/TextSides.h"
#include "ui/WrappedText.h"
#include "ui/files/DropCount.h"
#include "ui/files/ListFacts.h"
#include "ui/queue/StatusQueueWindow.h"

#include "support/LogCapture.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QPushButton>

#include <stdexcept>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

const std::atomic<bool> goOn = false;

TEST(OutcomeColoursTest, OutcomesReadOnLightAndDark)
{
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        for (const Colour& colour : {Colour::success(), Colour::failure(), Colour::text()}) {
            EXPECT_GE(contrast(shownColour(colour, palette), palette.color(QPalette::Base)), 4.5);
        }
    }
    EXPECT_EQ(shownColour(Colour::success(), lightPalette()), QColor::fromRgbF(0.0F, 0.5F, 0.0F));
}

TEST(WrappedTextTest, BreaksAtWordsAndEndsTheLastLineThatThereIsRoomForWithAnEllipsis)
{
    const QFont font;
    const int width = QFontMetrics(font).horizontalAdvance(u"one two "_s);
    EXPECT_EQ(wrapped(u"one two"_s, font, width, 2), QStringList{u"one two"_s});
    EXPECT_EQ(wrapped(u"one two\none"_s, font, width, 2), QStringList({u"one two"_s, u"one"_s}));
    const QStringList cut = wrapped(u"one two one two one two"_s, font, width, 2);
    ASSERT_EQ(cut.size(), 2);
    EXPECT_TRUE(cut[1].startsWith(u"one"_s)) << cut[1].toStdString();
    EXPECT_TRUE(cut[1].endsWith(u'\u2026')) << cut[1].toStdString();
    EXPECT_EQ(wrapped(QString(), font, width, 2).join(QString()), QString());
}

TEST(ListFactsTest, FindsOutWhetherFilesLieInSeveralFolders)
{
    EXPECT_FALSE(liesInSeveralFolders({}));
    EXPECT_FALSE(liesInSeveralFolders({u"/a/1"_s, u"/a/2"_s}));
    EXPECT_TRUE(liesInSeveralFolders({u"/a/1"_s, u"/a/b/2"_s}));
    EXPECT_TRUE(liesInSeveralFolders({u"/a/1"_s, u"/b/2"_s}));
    EXPECT_FALSE(liesInSeveralFolders({u"1"_s, u"2"_s}));
}

TEST(ListFactsTest, TellsFilesSizeAndFolders)
{
    EXPECT_EQ(listFactsText({23, 3, 1'234'000'000}), u"23 files, 1.2 GB, 3 folders"_s);
    EXPECT_EQ(listFactsText({1, 1, 12}), u"1 file, 12 bytes"_s);
    EXPECT_EQ(listFactsText({}), QString());
}

TEST(ListFactsTest, FilesThatAreGoneMeasureNothing)
{
    EXPECT_EQ(gatherListFacts({u"/no/such/file"_s}, goOn), (ListFacts{1, 1, 0}));
}

class DropCountTest : public testing::Test
{
protected:
    QString file(const QString& name)
    {
        const QString path = folder.filePath(name);
        QDir().mkpath(path.left(path.lastIndexOf(u'/')));
        EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly));
        return path;
    }
    const QTemporaryDir folder;
    const QSet<QString> taken{u"FLAC"_s};
};

TEST_F(DropCountTest, CountsWhatTheListWouldTake)
{
    const QStringList paths{file(u"a.flac"_s), file(u"notes"_s), file(u"b.txt"_s), folder.filePath(u"sub"_s)};
    file(u"sub/deep/c.FLAC"_s);
    file(u"sub/.DS_Store"_s);
    EXPECT_EQ(countDrop(paths, taken, goOn).files, 3); // a file without an extension is taken too
    EXPECT_EQ(countDrop(paths, {}, goOn).files, 4);
}

TEST_F(DropCountTest, EndsEarlyWhenTold)
{
    const std::atomic<bool> stop = true;
    EXPECT_FALSE(countDrop({file(u"a.flac"_s)}, taken, stop).complete);
}

TEST_F(DropCountTest, SaysItInWords)
{
    EXPECT_EQ(dropText({1, true}), u"Drop to add 1 file"_s);
    EXPECT_EQ(dropText({100000, false}), u"Drop to add more than 100,000 files"_s);
    EXPECT_EQ(dropText({0, true}), u"Nothing here that this list takes"_s);
}

TEST(SymbolsTest, EveryBundledDrawingTakesItsColour)
{
    for (const char16_t* name : {u"bar", u"cross", u"dialog-warning", u"document-save-as", u"edit-clear", u"edit-find",
                                 u"list-add", u"process-stop", u"tick"}) {
        QImage picture(32, 32, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        paintSymbol(painter, QString::fromUtf16(name), picture.rect(), Qt::red);
        painter.end();
        bool red = false;
        for (int at = 0; at < 32 * 32; ++at)
            red |= picture.pixelColor(at % 32, at / 32) == QColor(Qt::red);
        EXPECT_TRUE(red) << QString::fromUtf16(name).toStdString();
    }
}

TEST(SymbolsTest, ADrawingIsMadeForEachColourSizeAndScreen)
{
    const auto painted = [](int side, double ratio, const QColor& colour) {
        QImage picture(QSize(side, side) * ratio, QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        paintSymbol(painter, u"tick"_s, QRectF(0, 0, side, side), colour);
        painter.end();
        picture.setDevicePixelRatio(1);
        return picture;
    };
    const QImage red = painted(32, 1, Qt::red);
    EXPECT_EQ(painted(32, 1, Qt::red), red);
    EXPECT_NE(painted(32, 1, Qt::blue), red);
    EXPECT_NE(painted(24, 1, Qt::red).size(), red.size());
    EXPECT_EQ(painted(16, 2, Qt::red), red) << "not a small one made larger";
    EXPECT_GT(colourCount(painted(24, 1, Qt::red)), 1);
}

TEST(SymbolsTest, ADrawingStandsInTheMiddleOfItsPlace)
{
    QImage picture(60, 20, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    paintSymbol(painter, u"bar"_s, picture.rect(), Qt::red);
    painter.end();
    EXPECT_EQ(colourCount(picture.copy(0, 0, 20, 20)), 1);
    EXPECT_GT(colourCount(picture.copy(20, 0, 20, 20)), 1);
    EXPECT_EQ(colourCount(picture.copy(40, 0, 20, 20)), 1);
}

TEST(RightToLeftTest, ANameThatBeginsWithANumberKeepsItsOrder)
{
    EXPECT_EQ(inReadingOrder(u"01 Intro.flac"_s, Qt::LeftToRight), u"01 Intro.flac"_s);
    EXPECT_EQ(inReadingOrder(u"01 Intro.flac"_s, Qt::RightToLeft), u"\u200e01 Intro.flac\u200e"_s);
    EXPECT_EQ(inReadingOrder(u"\u200eChoose…\u200e"_s, Qt::RightToLeft), u"\u200eChoose…\u200e"_s);
    EXPECT_EQ(inReadingOrder(u"01 \u0634\u0645\u0633"_s, Qt::RightToLeft), u"01 \u0634\u0645\u0633"_s);
}

TEST(RightToLeftTest, ALabelStandsWhereItsLineBegins)
{
    const auto left = [](Qt::LayoutDirection direction) {
        QWidget window;
        window.setLayoutDirection(direction);
        QLabel label(u"Output"_s, &window);
        label.resize(400, 30);
        keepTextsOnTheirSide(window);
        const QImage picture = label.grab().toImage();
        return colourCount(picture.copy(0, 0, 200, picture.height())) > 1;
    };
    EXPECT_TRUE(left(Qt::LeftToRight));
    EXPECT_FALSE(left(Qt::RightToLeft));
}

TEST(RightToLeftTest, WordsOfAButtonKeepTheirOrderAndTheirKey)
{
    QWidget window;
    QPushButton dots(u"&Choose…"_s, &window), number(&window);
    keepTextsOnTheirSide(window);
    EXPECT_EQ(dots.text(), u"&Choose…"_s);
    window.setLayoutDirection(Qt::RightToLeft);
    keepTextsOnTheirSide(window);
    EXPECT_EQ(dots.text(), u"\u200e&Choose…\u200e"_s);
    showWords(dots, u"Choose…"_s);
    EXPECT_EQ(dots.text(), u"\u200e&Choose…\u200e"_s);
    showWords(number, u"1 of 2"_s);
    EXPECT_EQ(number.text(), u"\u200e1 of 2\u200e"_s);
}

TEST(SymbolsTest, OnASelectedRowASignHasTheSelectionsColour)
{
    const auto colour = [](QIcon::Mode mode) {
        const QImage picture = symbolIcon(u"bar"_s).pixmap(QSize(32, 32), mode).toImage();
        return picture.pixelColor(16, 16).rgb();
    };
    const QPalette palette = QApplication::palette();
    EXPECT_EQ(colour(QIcon::Normal), palette.color(QPalette::ButtonText).rgb());
    EXPECT_EQ(colour(QIcon::Selected), palette.color(QPalette::HighlightedText).rgb());
}

TEST(GuardedApplicationTest, AFaultInAnEventIsLoggedAndTheLoopGoesOn)
{
    class Faulty : public QObject
    {
    public:
        bool event(QEvent*) override { throw std::runtime_error("broken handler"); }
    } faulty;
    const LogCapture log;
    QEvent event(QEvent::User);
    EXPECT_FALSE(QApplication::sendEvent(&faulty, &event));
    EXPECT_EQ(log.count(u"broken handler"_s), 1);
}

} // namespace
} // namespace zolt::test
