#include "support/FakeTools.h"

#include "support/test.h"

#include <QFile>

using namespace zolt::test;
using namespace Qt::StringLiterals;

TEST(FakeTools, AFakeInTheRealToolsPlaceLeavesTheProgramAsItIs)
{
    const QTemporaryDir system;
    const QString program = system.filePath(u"program"_s);
    QFile file(program);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("real");
    file.close();
    FakeTools tools;
    tools.installReal(u"tool"_s, program);
    tools.install(u"tool"_s, {u"exit"_s, u"1"_s});
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "real");
    EXPECT_TRUE(QFileInfo(tools.directory() + u"/tool"_s).isExecutable());
    EXPECT_FALSE(QFileInfo(tools.directory() + u"/tool"_s).isSymLink());
}
