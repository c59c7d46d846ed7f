#include "codec/CompanionFixture.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace zolt::test {

using namespace Qt::StringLiterals;

namespace {

Outcome finish(QProcess& process, const QString& program, const QStringList& arguments, const QByteArray& input)
{
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(120000)) << program.toStdString();
    const int status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return {status, process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

Outcome Companions::run(const QString& tool, const QStringList& arguments, const QByteArray& input) const
{
    QProcess process;
    process.setWorkingDirectory(folder_.path());
    return finish(process, QStringLiteral(ZOLT_COMPANIONS) + u'/' + tool, arguments, input);
}

Outcome Companions::shell(const QString& script) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PATH"_s, QStringLiteral(ZOLT_COMPANIONS) + u":/usr/bin:/bin"_s);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder_.path());
    return finish(process, u"/bin/sh"_s, {u"-c"_s, script}, {});
}

QString Companions::file(const QString& name, const QByteArray& contents) const
{
    QFile made(in(name));
    EXPECT_TRUE(made.open(QIODevice::WriteOnly) && made.write(contents) == contents.size());
    return made.fileName();
}

QByteArray Companions::contents(const QString& name) const
{
    QFile opened(in(name));
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << name.toStdString();
    return opened.readAll();
}

QByteArray Companions::decodedByFfmpeg(const QString& name, const QString& form) const
{
    QProcess process;
    const Outcome outcome =
        finish(process, u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, in(name), u"-f"_s, form, u"-"_s}, {});
    EXPECT_EQ(outcome.errors, "") << name.toStdString();
    return outcome.output;
}

void Companions::expectFlipsToBeTold(const QString& tool, const QStringList& call, const QByteArray& whole,
                                     int count) const
{
    QStringList arguments = call;
    arguments.replaceInStrings(u"SOURCE"_s, file(u"flipped"_s, whole));
    const QByteArray right = run(tool, arguments).output;
    ASSERT_GT(right.size(), 44);
    Random random(7);
    for (int i = 0; i < count; ++i) {
        QByteArray flipped = whole;
        const auto bit = std::uniform_int_distribution<qsizetype>(0, flipped.size() * 8 - 1)(random);
        flipped[bit / 8] = char(flipped[bit / 8] ^ 1 << bit % 8);
        file(u"flipped"_s, flipped);
        const Outcome outcome = run(tool, arguments);
        EXPECT_NE(outcome.status, -1) << "bit " << bit;
        EXPECT_TRUE(outcome.status != 0 || outcome.output == right) << "bit " << bit << " was not told";
    }
}

std::optional<QByteArray> sharedFixture(const QString& name)
{
    QFile opened(QStringLiteral(ZOLT_SHARED_FIXTURES) + u'/' + name);
    if (!opened.open(QIODevice::ReadOnly)) return std::nullopt;
    return opened.readAll();
}

} // namespace zolt::test
