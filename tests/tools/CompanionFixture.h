// Where companions are tried: a folder with samples and with a "bin" that stands first on PATH.
#pragma once

#include "platform/files/Files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zolt::test {

using namespace Qt::StringLiterals;

struct Outcome
{
    QProcess::ExitStatus how = QProcess::NormalExit;
    int status = -1;
    QByteArray output, errors;
};

class CompanionFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(folder_.path()).mkpath(u"bin"_s));
        environment_ = QProcessEnvironment::systemEnvironment();
        environment_.insert(u"PATH"_s, in(u"bin"_s) + u":/usr/bin:/bin"_s);
    }

    QString in(const QString& name) const { return folder_.filePath(name); }

    /// A tone, its format by the name's extension.
    QString sample(const QString& name, int rate = 44100, int bits = 16, int channels = 2, double seconds = 1) const
    {
        EXPECT_EQ(QProcess::execute(u"sox"_s,
                                    {u"-q"_s, u"-D"_s, u"-n"_s, u"-r"_s, QString::number(rate), u"-b"_s,
                                     QString::number(bits), u"-c"_s, QString::number(channels), in(name), u"synth"_s,
                                     QString::number(seconds), u"sine"_s, u"440"_s, u"vol"_s, u"0.5"_s}),
                  0);
        return in(name);
    }

    void script(const QString& name, const QString& commands) const
    {
        ASSERT_TRUE(writeTextAtomically(in(name), u"#!/bin/sh\n"_s + commands));
        ASSERT_TRUE(QFile::setPermissions(in(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    /// Puts a shell script in the place of the real tool.
    void standIn(const QString& commands) const { script(u"bin/shntool"_s, commands); }

    void start(QProcess& process, const QString& program, const QStringList& arguments) const
    {
        process.setProcessEnvironment(environment_);
        process.setWorkingDirectory(folder_.path());
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(program, arguments);
    }

    Outcome run(const QString& program, const QStringList& arguments) const
    {
        QProcess process;
        start(process, program, arguments);
        EXPECT_TRUE(process.waitForFinished(120000));
        return {process.exitStatus(), process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError()};
    }

    Outcome companion(const QStringList& arguments) const { return run(QStringLiteral(SHNTOOL_COMPANION), arguments); }

    void expectNoTraces() const
    {
        EXPECT_TRUE(QDir(folder_.path()).entryList({u".zolt-shntool-*"_s}, QDir::AllEntries | QDir::Hidden).isEmpty());
    }

    QByteArray contents(const QString& path) const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    QProcessEnvironment environment_;

private:
    QTemporaryDir folder_;
};

} // namespace zolt::test
