#include "shell/Constants.h"
#include "ui/WindowFixture.h"
#include "util/UtilTab.h"

#include <QLabel>
#include <QRadioButton>
#include <QTimer>
#include <QtEndian>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class UtilPageTest : public WindowTest
{
protected:
    UtilPageTest()
    {
        const auto& tabs = controller().tabView->items();
        for (std::size_t index = 0; index < tabs.size(); ++index) {
            if (tabs[index]->label() == Constants::UTIL) window().selectTab(int(index));
        }
        runPosted();
    }
    UtilTab& util() { return program_.program().tab<UtilTab>(); }
    void click(const char* name)
    {
        auto& button = widget<QAbstractButton>(name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
        runPosted();
    }
    /// A WAV file of that many seconds.
    QString wav(const QString& name, int seconds)
    {
        constexpr quint32 rate = 44100, frame = 4, formatSize = 16, riffHead = 36;
        const quint32 bytes = quint32(seconds) * rate * frame;
        const auto number = [](quint32 value, int size) {
            const quint32 little = qToLittleEndian(value);
            return QByteArray(reinterpret_cast<const char*>(&little), size);
        };
        QFile made(pathOf(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write("RIFF" + number(riffHead + bytes, 4) + "WAVEfmt " + number(formatSize, 4) + number(1, 2) +
                   number(2, 2) + number(rate, 4) + number(rate * frame, 4) + number(frame, 2) + number(16, 2) +
                   "data" + number(bytes, 4) + QByteArray(bytes, '\0'));
        return made.fileName();
    }
};

TEST_F(UtilPageTest, EachCommandShowsItsOwnChoices)
{
    EXPECT_TRUE(widget<QWidget>("oneTrackButton").isVisible());
    EXPECT_TRUE(widget<QWidget>("tracksOfDiscButton").isVisible());
    EXPECT_FALSE(widget<QWidget>("replayGainMatrix").isVisible());
    click("commandMatrix_2");
    EXPECT_EQ(util().command(), UtilTab::replayGain);
    EXPECT_FALSE(widget<QWidget>("oneTrackButton").isVisible());
    EXPECT_TRUE(widget<QWidget>("replayGainMatrix").isVisible());
    click("replayGainMatrix_1");
    EXPECT_EQ(util().replayGainMatrix->selectedIndex(), 1);
}

TEST_F(UtilPageTest, TheChoicesOfOneCommandStandWhereThoseOfAnotherDo)
{
    const auto choicesEnd = [this] { return widget<QWidget>("commandMatrix").geometry().bottom(); };
    const auto isNextTo = [&](const char* name) {
        const auto& option = widget<QWidget>(name);
        return option.isVisible() && option.y() > choicesEnd() && option.y() < choicesEnd() + option.height();
    };
    EXPECT_TRUE(runUntil([&] { return isNextTo("tracksOfDiscButton"); }));
    click("commandMatrix_2");
    EXPECT_TRUE(runUntil([&] { return isNextTo("replayGainMatrix"); }));
    panels_.answerAlert(alertReply::defaultButton);
    click("commandMatrix_4");
    EXPECT_TRUE(runUntil([&] { return isNextTo("dvdAudioDiscTimeStaticText"); }));
}

TEST_F(UtilPageTest, TheTableGrowsForADiscAndShrinksAgain)
{
    util().addFiles({wav(u"a.wav"_s, 61), wav(u"b.wav"_s, 2)});
    panels_.answerAlert(alertReply::defaultButton);
    click("commandMatrix_4");
    ASSERT_TRUE(runUntil([&] { return widget<QLabel>("dvdAudioDiscTime").text() == u"1:03"_s; }));
    EXPECT_TRUE(widget<QLabel>("dvdAudioDiscTime").isVisible());
    EXPECT_EQ(widget<QLabel>("dvdAudioDiscSize").text(), u"11.11 MB"_s);
    click("commandMatrix_4"); // the second click turns it off
    ASSERT_TRUE(runUntil([&] { return util().commandMatrix->selectedIndex() == -1; }));
    runPosted();
    EXPECT_FALSE(widget<QRadioButton>("commandMatrix_4").isChecked());
    EXPECT_FALSE(widget<QLabel>("dvdAudioDiscTime").isVisible());
    EXPECT_EQ(util().tableView->columns().size(), 1U);
}

TEST_F(UtilPageTest, ADiscIsNoChoiceThatComesBackAtTheNextStart)
{
    const QString key = u"page.util.commandMatrix"_s;
    const auto kept = [&] { return UserDefaults::standard().stringForKey(key); };
    click("commandMatrix_3");
    ASSERT_TRUE(runUntil([&] { return kept() == u"3"_s; }));
    panels_.answerAlert(alertReply::defaultButton);
    click("commandMatrix_4");
    click("replayGainMatrix_0");
    QTest::keyClick(&window(), Qt::Key_1, Qt::ControlModifier);
    util().setOneTrack(true); // a choice that is kept tells that the page has kept its choices
    ASSERT_TRUE(
        runUntil([&] { return UserDefaults::standard().stringForKey(u"page.util.oneTrackButton"_s) == u"1"_s; }));
    EXPECT_EQ(kept(), u"3"_s);
    UserDefaults::standard().set(key, u"4"_s); // as an older version kept it
    QTimer question;
    QObject::connect(&question, &QTimer::timeout, [] {
        QWidget* const asked = QApplication::activeModalWidget();
        EXPECT_EQ(asked, nullptr) << "a question ahead of the window";
        if (asked) asked->close();
    });
    question.start(10);
    WindowProgram next;
    EXPECT_EQ(next.program().tab<UtilTab>().command(), UtilTab::extraction);
}

} // namespace
} // namespace zolt::test
