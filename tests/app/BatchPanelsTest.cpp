#include "app/batch/BatchPanels.h"

using namespace zolt;
using namespace zolt::batch;
using namespace Qt::StringLiterals;

namespace {

/// What standard error takes while it lives.
template <class Work> std::string saidDuring(const Work& work)
{
    testing::internal::CaptureStderr();
    work();
    return testing::internal::GetCapturedStderr();
}

} // namespace

TEST(BatchPanels, AnAlertWithOneButtonIsPrinted)
{
    BatchPanels panels({});
    EXPECT_EQ(
        saidDuring([&] { EXPECT_EQ(panels.runAlert(u"Skipped"_s, {}, u"OK"_s, {}, {}), alertReply::defaultButton); }),
        "zolt-batch: Skipped\n");
}

TEST(BatchPanels, YesPressesTheButtonOfThatNameWhereverItIs)
{
    BatchPanels panels({.yes = true});
    EXPECT_EQ(panels.runAlert(u"Delete?"_s, {}, u"Yes"_s, u"No"_s, {}), alertReply::defaultButton);
    EXPECT_EQ(panels.runAlert(u"Quit?"_s, {}, u"No"_s, u"Yes"_s, {}), alertReply::alternateButton);
}

TEST(BatchPanels, WithoutATerminalEveryConfirmationIsDenied)
{
    BatchPanels panels({});
    const std::string said = saidDuring([&] {
        EXPECT_EQ(panels.runAlert(u"Delete?"_s, u"All."_s, u"Yes"_s, u"No"_s, {}), alertReply::alternateButton);
        EXPECT_EQ(panels.runAlert(u"Quit?"_s, {}, u"No"_s, u"Yes"_s, {}), alertReply::defaultButton);
    });
    EXPECT_THAT(said, testing::HasSubstr("Delete? All. Say so with --yes"));
}

TEST(BatchPanels, AFolderIsTheOneGivenOrNone)
{
    const OpenPanelRequest folder{.canChooseFiles = false, .canChooseDirectories = true};
    EXPECT_EQ(BatchPanels({.folder = u"/d"_s}).openPanel(folder), QStringList{u"/d"_s});
    EXPECT_FALSE(BatchPanels({}).openPanel(folder));
    EXPECT_FALSE(BatchPanels({.folder = u"/d"_s}).openPanel({.canChooseFiles = true}));
    EXPECT_FALSE(BatchPanels({.folder = u"/d"_s}).savePanel({.title = {}, .fileName = u"a"_s}));
}
