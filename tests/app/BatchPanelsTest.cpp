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

TEST(BatchPanels, AFileIsTheOneGivenOrNone)
{
    const OpenPanelRequest folder{.canChooseFiles = false, .canChooseDirectories = true};
    EXPECT_EQ(BatchPanels({.file = u"/f"_s}).openPanel({.canChooseFiles = true}), QStringList{u"/f"_s});
    EXPECT_FALSE(BatchPanels({}).openPanel({.canChooseFiles = true}));
    EXPECT_FALSE(BatchPanels({.file = u"/f"_s}).openPanel(folder));
    EXPECT_EQ(BatchPanels({.savePath = u"/s"_s}).savePanel({.title = {}, .fileName = u"a"_s}), u"/s"_s);
    EXPECT_FALSE(BatchPanels({.file = u"/f"_s}).savePanel({.title = {}, .fileName = u"a"_s}));
}
