#include "app/zolt/CommandLine.h"

#include <QDir>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using Action = CommandLine::Action;

TEST(CommandLineTest, FilesAreTakenFromTheWorkingDirectory)
{
    const auto line =
        readCommandLine({u"/a/b.flac"_s, u"c.flac"_s, u"file:///d/e%20f.flac"_s, u"--"_s, u"--odd.flac"_s});
    EXPECT_EQ(line.action, Action::Run);
    EXPECT_THAT(line.request.files, ElementsAre(u"/a/b.flac"_s, QDir::current().absoluteFilePath(u"c.flac"_s),
                                                u"/d/e f.flac"_s, QDir::current().absoluteFilePath(u"--odd.flac"_s)));
    EXPECT_EQ(line.request.tab, -1);
}

TEST(CommandLineTest, ATabIsChosenByItsNumber)
{
    EXPECT_EQ(readCommandLine({u"--select-tab"_s, u"1"_s}).request.tab, 1);
    for (const QStringList& faulty :
         {QStringList{u"--select-tab"_s}, {u"--select-tab"_s, u"one"_s}, {u"--select-tab"_s, u"-1"_s}}) {
        EXPECT_EQ(readCommandLine(faulty).action, Action::Wrong);
    }
}

TEST(CommandLineTest, OptionsOfTheToolkitAreLeftToIt)
{
    const auto line =
        readCommandLine({u"-style"_s, u"fusion"_s, u"-reverse"_s, u"/a.flac"_s, u"-platform"_s, u"xcb"_s});
    EXPECT_EQ(line.action, Action::Run);
    EXPECT_THAT(line.request.files, ElementsAre(u"/a.flac"_s));
}

TEST(CommandLineTest, HelpVersionAndUnknownOptions)
{
    EXPECT_EQ(readCommandLine({u"--help"_s}).action, Action::Help);
    EXPECT_EQ(readCommandLine({u"--version"_s}).action, Action::Version);
    const auto wrong = readCommandLine({u"--colour"_s});
    EXPECT_EQ(wrong.action, Action::Wrong);
    EXPECT_TRUE(wrong.fault.contains(u"--colour"));
    EXPECT_TRUE(helpText().contains(u"--select-tab"));
    EXPECT_TRUE(versionText().startsWith(u"Zolt Toolkit "));
}

TEST(CommandLineTest, AStartBesideAnOpenWindowSaysWhatItDid)
{
    EXPECT_EQ(handedOverText({}), u"Zolt Toolkit is running already: its window comes to the front. "
                                  "Quit it first to start another build.\n"_s);
    EXPECT_TRUE(handedOverText({.files = {u"a"_s}}).contains(u"to the front and takes the file. "));
    EXPECT_TRUE(handedOverText({.files = {u"a"_s, u"b"_s}}).contains(u" and takes the 2 files. "));
}

} // namespace
} // namespace zolt::test
