#include "BatchTesting.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QThread>

namespace zolt::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestWait = 120000; // milliseconds; only a broken program needs them

} // namespace

BatchTest::BatchTest()
{
    environment = QProcessEnvironment::systemEnvironment();
    for (const QString& place : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s}) {
        environment.insert(place, in(u"home"_s));
    }
    environment.remove(u"ZOLT_TOOLS"_s);
    QDir().mkpath(in(u"home"_s));
}

QByteArray BatchTest::contents(const QString& path) const
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void BatchTest::write(const QString& path, const QByteArray& bytes) const
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

void BatchTest::useTools(const QStringList& names)
{
    const QString tools = in(u"tools"_s);
    ASSERT_TRUE(QDir().mkpath(tools));
    for (const QString& name : names)
        ASSERT_TRUE(QFile::link(QStandardPaths::findExecutable(name), tools + u'/' + name));
    environment.insert(u"ZOLT_TOOLS"_s, tools);
}

void BatchTest::standInFor(const QString& tool, const QString& script)
{
    const QString path = in(u"tools/"_s + tool);
    const QString head = u"#!/bin/sh\nreal=%1\ndir='%2'\n"_s.arg(QStandardPaths::findExecutable(tool), in({}));
    write(path, (head + script).toUtf8());
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void BatchTest::standInForFlac(const QString& script)
{
    useTools({u"metaflac"_s});
    standInFor(u"flac"_s, script);
}

std::unique_ptr<QProcess> BatchTest::start(const QStringList& arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(in({}));
    process->setStandardInputFile(QProcess::nullDevice());
    QStringList words = launcher + QStringList{QStringLiteral(ZOLT_BATCH)} + arguments;
    const QString program = words.takeFirst();
    process->start(program, words);
    EXPECT_TRUE(process->waitForStarted());
    return process;
}

BatchOutcome BatchTest::finish(QProcess& process) const
{
    EXPECT_TRUE(process.waitForFinished(longestWait));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    BatchOutcome outcome{.status = process.exitCode(),
                         .rows = {},
                         .output = QString::fromUtf8(process.readAllStandardOutput()),
                         .errors = QString::fromUtf8(process.readAllStandardError())};
    outcome.rows = outcome.output.section(u"\n\n"_s, 0, 0).split(u'\n', Qt::SkipEmptyParts);
    return outcome;
}

BatchOutcome BatchTest::run(const QStringList& arguments)
{
    return finish(*start(arguments));
}

void BatchTest::waitUntil(const std::function<bool()>& condition) const
{
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.hasExpired(longestWait)) GTEST_FAIL() << "nothing came";
        QThread::msleep(2);
    }
}

} // namespace zolt::test
