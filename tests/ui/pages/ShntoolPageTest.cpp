#include "platform/threads/DetachedThreads.h"
#include "shntool/FixTab.h"
#include "shntool/SHNtoolTab.h"
#include "ui/WindowFixture.h"
#include "ui/pages/OutlookLine.h"

#include <QAbstractButton>
#include <QLabel>

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

TEST_F(ShntoolPageTest, FixTellsWhatIsKnownOfTheBoundaries)
{
    showTab(4);
    fixTab().addFiles({file(u"a.wav"_s)});
    EXPECT_TRUE(says("boundaries", u"Not known without the tool: a.wav."_s));
}

} // namespace
} // namespace zolt::test
