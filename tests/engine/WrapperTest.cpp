#include "engine/NSTaskWrapperSync.h"

#include "platform/desktop/ToolsDirectory.h"
#include "platform/errors/Exceptions.h"
#include "support/FakeTool.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

TEST(WrapperSync, ReturnsBothStreamsAndKeepsThem)
{
    auto wrapper = NSTaskWrapperSync::initWithLaunchPathArguments(
        fakeTool(), {u"out"_s, u"a"_s, u"err"_s, u"b"_s, u"exit"_s, u"4"_s});
    EXPECT_EQ(wrapper.output(), QString());
    EXPECT_EQ(wrapper.runTask(), u"ab"_s);
    EXPECT_EQ(wrapper.output(), u"ab"_s);
}

TEST(WrapperSync, ChildFindsTheVariablesThatTheCallerAdds)
{
    NSTaskWrapperSync wrapper(fakeTool(), {u"env"_s, u"AP_PADDING"_s, u"out"_s, u"|"_s, u"env"_s, u"NSUnbufferedIO"_s,
                                           u"out"_s, u"|"_s, u"env"_s, u"PATH"_s});
    wrapper.environment().insert(u"AP_PADDING"_s, u"UPDATE_PADDING=0"_s);
    wrapper.appendToPATH(u"/extra"_s);
    EXPECT_EQ(wrapper.runTask(), u"UPDATE_PADDING=0|YES|"_s + QString::fromLocal8Bit(qgetenv("PATH")) + u':' +
                                     toolsDirectory() + u":/extra"_s);
}

TEST(WrapperSync, RunsInTheGivenDirectory)
{
    const QTemporaryDir directory;
    NSTaskWrapperSync wrapper(fakeTool(), {u"cwd"_s});
    wrapper.setDirectory(directory.path());
    EXPECT_EQ(wrapper.runTask(), directory.path());
}

TEST(WrapperSync, OutputThatIsNotUtf8IsNoText)
{
    NSTaskWrapperSync wrapper(fakeTool(), {u"hex"_s, u"FF"_s});
    EXPECT_EQ(wrapper.runTask(), std::nullopt);
}

TEST(WrapperSync, MissingToolThrows)
{
    NSTaskWrapperSync wrapper(u"/nowhere/tool"_s, {});
    EXPECT_THROW(wrapper.runTask(), PlatformException);
}
