// The program itself, started while it runs already.
#include "PrivateBus.h"
#include "platform/Product.h"
#include "support/EventLoop.h"
#include "ui/bus/Names.h"

#include <QDBusConnectionInterface>
#include <QProcess>
#include <QTemporaryDir>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class SecondStart : public testing::Test
{
protected:
    SecondStart()
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus_.address());
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        for (const QString& place : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_CACHE_HOME"_s})
            environment.insert(place, home_.path());
        for (QProcess* program : {&first_, &second_}) {
            program->setProcessEnvironment(environment);
            program->setProgram(QStringLiteral(ZOLT_PROGRAM));
        }
    }
    ~SecondStart() override
    {
        for (QProcess* program : {&first_, &second_}) {
            program->kill();
            program->waitForFinished();
        }
    }
    bool isThere()
    {
        return bus_.connection(u"looking"_s).interface()->isServiceRegistered(QString::fromUtf16(busName::application));
    }

    PrivateBus bus_;
    const QTemporaryDir home_;
    QProcess first_, second_;
};

TEST_F(SecondStart, SaysThatTheWindowThatIsThereComesToTheFront)
{
    first_.start();
    ASSERT_TRUE(runUntil([this] { return isThere(); }));
    second_.start();
    ASSERT_TRUE(runUntil([this] { return second_.state() == QProcess::NotRunning; }));
    EXPECT_EQ(second_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second_.exitCode(), 0);
    EXPECT_TRUE(second_.readAllStandardOutput().startsWith(QByteArray(product::name) + " is running already"));
    EXPECT_EQ(first_.state(), QProcess::Running);
}

} // namespace
} // namespace zolt::test
