// Thread tasks and event-driven tasks side by side.
#include "DecodeFixture.h"

#include "platform/threads/DetachedThreads.h"
#include "support/FakeTools.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// There before the tab, which asks for their directory when it is made.
struct InstalledTools
{
    InstalledTools()
    {
        tools_.install(u"flac"_s, {u"out"_s, u"a.flac: 50% complete"_s});
        tools_.install(u"shntool"_s, {u"out"_s, u"\b 50% "_s, u"out"_s, u"100% OK"_s});
        tools_.install(u"wvunpack"_s, {u"out"_s, u"\b 50% done..."_s});
        tools_.install(u"ttaenc"_s, {u"out"_s, u"\bPercent Progress: 50\b"_s});
        tools_.install(u"mac"_s, {u"out"_s, u"\rProgress: 50% (1 seconds remaining, 2 seconds total)"_s});
    }

    FakeTools tools_;
};

class MixedQueue : public InstalledTools, public DecodeTest, public testing::WithParamInterface<int>
{
};

INSTANTIATE_TEST_SUITE_P(AtOnce, MixedQueue, testing::Values(2, 3, 8));

} // namespace

TEST_P(MixedQueue, TwoHundredFilesNeverStall)
{
    const QStringList extensions{u"flac"_s, u"shn"_s, u"wv"_s, u"tta"_s, u"ape"_s};
    queue().maxThreadsChanged({QString(), nullptr, GetParam()});
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 200; ++i)
            tab.addFile(pathOf(u"%1.%2"_s.arg(i).arg(extensions[i * 7 % 5])));
        tab.executeCommand(nullptr);
        runQueue();
        waitForDetachedThreads();
        runPosted();
        EXPECT_TRUE(queue().panelArray().empty()) << "all complete";
        EXPECT_TRUE(queue().outputWindows().empty());
    }
    for (const char* tool : {"flac", "shntool", "wvunpack", "ttaenc", "mac"})
        EXPECT_EQ(tools_.calls(QLatin1StringView(tool)).size(), 80) << tool;
}
