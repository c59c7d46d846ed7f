#include "platform/process/Environment.h"

#include "platform/desktop/ToolsDirectory.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(Environment, PathHasTheToolsDirectoryBehindTheProgramsOwn)
{
    EXPECT_EQ(childEnvironment().value(u"PATH"_s), QString::fromLocal8Bit(qgetenv("PATH")) + u':' + toolsDirectory());
}

TEST(Environment, FollowsAChangeOfTheProgramsOwn)
{
    qputenv("ZOLT_TEST_MARK", "one");
    EXPECT_EQ(childEnvironment().value(u"ZOLT_TEST_MARK"_s), u"one"_s);
    qputenv("ZOLT_TEST_MARK", "two=2");
    EXPECT_EQ(childEnvironment().value(u"ZOLT_TEST_MARK"_s), u"two=2"_s);
    qunsetenv("ZOLT_TEST_MARK");
    EXPECT_FALSE(childEnvironment().contains(u"ZOLT_TEST_MARK"_s));
}

TEST(Environment, UnbufferedOutputIsAskedForAtTheLaunchAlone)
{
    Environment environment = childEnvironment();
    EXPECT_FALSE(environment.contains(u"NSUnbufferedIO"_s));
    setUnbufferedIO(environment);
    EXPECT_EQ(environment.value(u"NSUnbufferedIO"_s), u"YES"_s);
    EXPECT_FALSE(childEnvironment().contains(u"NSUnbufferedIO"_s));
    environment.insert(u"OWN"_s, u"1"_s);
    setUnbufferedIO(environment);
    EXPECT_EQ(environment.value(u"OWN"_s), u"1"_s);
}

TEST(Environment, WaitingTasksShareOneMap)
{
    EXPECT_TRUE(childEnvironment().isSharedWith(childEnvironment()));
}
