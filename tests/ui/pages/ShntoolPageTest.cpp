#include "platform/threads/DetachedThreads.h"
#include "shntool/FixTab.h"
#include "shntool/SHNtoolTab.h"
#include "ui/WindowFixture.h"
#include "ui/pages/OutlookLine.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class ShntoolPageTest : public WindowTest
{
protected:
    ShntoolPageTest() { showTab(3); }

    void showTab(int index)
    {
        program_.selectTab(index);
        runPosted();
    }
    SHNtoolTab& shntoolTab() { return program_.program().tab<SHNtoolTab>(); }
    FixTab& fixTab() { return program_.program().tab<FixTab>(); }
    bool says(const char* label, const QString& text)
    {
        return runUntil([&] { return widget<QLabel>(label).text().contains(text); });
    }
    QAbstractButton& cell(const char* matrix, int index)
    {
        return widget<QAbstractButton>(qPrintable(u"%1_%2"_s.arg(QLatin1String(matrix)).arg(index)));
    }
    QString wavOfOneFrame(const QString& name)
    {
        const QString path = file(name);
        QFile wav(path);
        EXPECT_TRUE(wav.open(QIODevice::WriteOnly));
        wav.write(QByteArray::fromHex("524946462800000057415645666d7420100000000100020044ac000010b1020004001000"
                                      "646174610400000001000200"));
        return path;
    }
    void choose(const char* matrix, int index)
    {
        cell(matrix, index).click();
        runPosted();
    }
};

TEST_F(ShntoolPageTest, EachCommandSaysWhatItDoesAndShowsWhatItReads)
{
    choose("shntoolCommandMatrix", 0); // len
    EXPECT_TRUE(says("commandSentence", u"Lists how long the files are"_s));
    EXPECT_TRUE(cell("shnLenMatrix", 0).isVisible());
    EXPECT_FALSE(widget<QAbstractButton>("namesButton").isVisible());
    choose("shnLenMatrix", 1);
    EXPECT_TRUE(widget<QAbstractButton>("namesButton").isVisible());
    choose("shntoolCommandMatrix", 3); // trim
    EXPECT_TRUE(says("commandSentence", u"\u2011trimmed"_s));
    EXPECT_FALSE(cell("shnLenMatrix", 0).isVisible());
    EXPECT_TRUE(cell("outputFormatMatrix", 0).isVisible());
    choose("shntoolCommandMatrix", 7); // pad
    EXPECT_TRUE(says("commandSentence", u"\u2011padded"_s));
    EXPECT_FALSE(cell("outputFormatMatrix", 0).isVisible());
    choose("shntoolCommandMatrix", 8); // strip
    EXPECT_TRUE(says("commandSentence", u"\u2011stripped"_s));
    choose("shntoolCommandMatrix", 5); // join
    EXPECT_TRUE(says("commandSentence", u"\"joined\""_s));
    choose("shntoolCommandMatrix", 4); // split
    EXPECT_TRUE(says("commandSentence", u"split-track01"_s));
}

TEST_F(ShntoolPageTest, SecondFixOfAListIsRefusedInWords)
{
    tool(u"shntool"_s, "exit 0\n");
    tool(u"flac"_s, "exit 0\n");
    queue().setHeld(true);
    showTab(4);
    fixTab().addFiles({file(u"a.wav"_s)});
    fixTab().setDestination(folder_.path());
    window().page()->pressCommand();
    EXPECT_EQ(queue().taskCount(), 1);
    EXPECT_TRUE(runUntil(
        [this] { return widget<OutlookLine>("outlook").text().contains(u"A fix of these files is under way"_s); }));
    panels_.answerAlert(1);
    window().page()->pressCommand();
    EXPECT_EQ(queue().taskCount(), 1);
    EXPECT_TRUE(panels_.alerts().back().title.startsWith(u"A fix of these files is under way"_s));
    queue().setHeld(false);
    ASSERT_TRUE(runUntil([this] { return queue().taskCount() == 0 && fixTab().fileNames().isEmpty(); }));
    waitForDetachedThreads(); // the task's own knows the tab
}

TEST_F(ShntoolPageTest, FixTellsItsLevel)
{
    showTab(4);
    const auto* const label = window().page()->findChild<QLabel*>(u"levelLabel"_s);
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(runUntil([&] { return label->text() == fixTab().flacLevelInWords(); }));
}

TEST_F(ShntoolPageTest, FixTellsWhatIsKnownOfTheBoundaries)
{
    showTab(4);
    fixTab().addFiles({file(u"a.wav"_s)});
    EXPECT_TRUE(says("boundaries", u"Not known without the tool: a.wav."_s));
}

TEST_F(ShntoolPageTest, FixListsInAToolTipWhatTheSentenceLeavesOut)
{
    showTab(4);
    const QString own = widget<QLabel>("boundaries").toolTip();
    EXPECT_TRUE(own.contains(u"588 frames"_s));
    QStringList files;
    for (const QString& name : {u"a.wav"_s, u"b.wav"_s, u"c.wav"_s, u"d.wav"_s})
        files += wavOfOneFrame(name);
    fixTab().addFiles(files);
    EXPECT_TRUE(says("boundaries", u"c.wav by 4 bytes and 1 more."_s));
    EXPECT_TRUE(widget<QLabel>("boundaries").toolTip().contains(u"d.wav by 4 bytes"_s));
    fixTab().clearFiles();
    EXPECT_TRUE(runUntil([&] { return widget<QLabel>("boundaries").toolTip() == own; }));
}

TEST_F(ShntoolPageTest, FolderFieldSaysWhetherOneIsAskedFor)
{
    auto& field = widget<QLineEdit>("destinationField");
    choose("shntoolCommandMatrix", 5); // join
    EXPECT_TRUE(runUntil([&] { return field.isEnabled(); }));
    EXPECT_EQ(field.placeholderText(), u"asked for at the start"_s);
    choose("shntoolCommandMatrix", 0); // len
    EXPECT_TRUE(runUntil([&] { return !field.isEnabled(); }));
    EXPECT_EQ(field.placeholderText(), u"none is needed"_s);
    EXPECT_EQ(field.toolTip(), u"No folder is asked for now"_s);
}

} // namespace
} // namespace zolt::test
