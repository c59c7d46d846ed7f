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

TEST(Environment, BytesThatAreNoTextReachTheChildAsTheyAre)
{
    qputenv("ZOLT_TEST_MARK", "/a/s\xFFng");
    Environment environment = childEnvironment();
    qunsetenv("ZOLT_TEST_MARK");
    environment.insert(u"OWN"_s, u"1"_s);
    EXPECT_THAT(*environmentEntries(environment),
                testing::IsSupersetOf({QByteArray("ZOLT_TEST_MARK=/a/s\xFFng"), QByteArray("OWN=1")}));
}

TEST(Environment, EntriesAreMadeOnceWhileNothingChanges)
{
    Environment first = childEnvironment(), second = childEnvironment();
    setUnbufferedIO(first);
    setUnbufferedIO(second);
    EXPECT_EQ(environmentEntries(first), environmentEntries(second));
    EXPECT_THAT(*environmentEntries(first), testing::Contains(QByteArray("NSUnbufferedIO=YES")));
    second.insert(u"NSUnbufferedIO"_s, u"NO"_s);
    EXPECT_THAT(*environmentEntries(second), testing::Contains(QByteArray("NSUnbufferedIO=NO")));
    qputenv("ZOLT_TEST_MARK", "one");
    Environment changed = childEnvironment();
    qunsetenv("ZOLT_TEST_MARK");
    setUnbufferedIO(changed);
    EXPECT_THAT(*environmentEntries(changed), testing::Contains(QByteArray("ZOLT_TEST_MARK=one")));
}

TEST(Environment, WaitingTasksShareOneMap)
{
    EXPECT_TRUE(childEnvironment().isSharedWith(childEnvironment()));
}
