#include "CompanionFixture.h"

#include <QThread>

#include <csignal>

using namespace zolt::test;

namespace {

class ShntoolCompanion : public CompanionFixture
{
};

QStringList namedOutput(const QString& overwrite, const QString& output, const QString& source)
{
    return {u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, overwrite, u"-o"_s, u"flac"_s, u"-n"_s, output, source};
}

} // namespace

TEST_F(ShntoolCompanion, HandsCallsThroughUnchanged)
{
    sample(u"a b.wav"_s);
    for (const QStringList& call : {QStringList{u"len"_s, u"a b.wav"_s},
                                    {u"hash"_s, u"a b.wav"_s},
                                    {u"len"_s, u"none.wav"_s},
                                    {u"conv"_s, u"-h"_s},
                                    {u"conv"_s, u"-x"_s},
                                    {}}) {
        const Outcome real = run(u"/usr/bin/shntool"_s, call), ours = companion(call);
        EXPECT_EQ(ours.status, real.status) << call.join(u' ').toStdString();
        EXPECT_EQ(ours.output, real.output);
        EXPECT_EQ(QByteArray(ours.errors).replace(SHNTOOL_COMPANION, "/usr/bin/shntool"), real.errors); // names itself
    }
}

TEST_F(ShntoolCompanion, FindsTheOtherToolsOfTheFolderThatItIsCalledIn)
{
    standIn(u"ttaenc\n"_s);
    ASSERT_TRUE(QDir(in(QString())).mkpath(u"tools"_s));
    ASSERT_TRUE(QFile::link(QStringLiteral(SHNTOOL_COMPANION), in(u"tools/shntool"_s)));
    script(u"tools/ttaenc"_s, u"echo ours\n"_s);
    EXPECT_EQ(run(in(u"tools/shntool"_s), {u"len"_s}).output, "ours\n");
    script(u"bin/ttaenc"_s, u"echo first on PATH\n"_s);
    EXPECT_EQ(run(in(u"tools/shntool"_s), {u"len"_s}).output, "first on PATH\n");
}

TEST_F(ShntoolCompanion, FindsWhatTheSystemFoldersLackAlsoWhenAnotherCompanionStartedIt)
{
    standIn(u"exec ./other/shntool \"$@\"\n"_s); // a tool that calls a companion once more
    ASSERT_TRUE(QDir(in(QString())).mkpath(u"other"_s));
    ASSERT_TRUE(QDir(in(QString())).mkpath(u"last"_s));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SHNTOOL_COMPANION), in(u"other/shntool"_s)));
    script(u"last/shntool"_s, u"echo reached\n"_s);
    environment_.insert(u"PATH"_s, in(u"last"_s) + u":/usr/bin:/bin"_s);
    EXPECT_EQ(run(in(u"bin/shntool"_s), {u"len"_s}).output, "reached\n");
}

TEST_F(ShntoolCompanion, HandsOddArgumentsThroughUnchanged)
{
    standIn(u"for a in \"$@\"; do printf '<%s>' \"$a\"; done; exit 7\n"_s);
    const Outcome outcome = companion({u"len"_s, QString(), u"a\nb"_s, u"\"q\" $x `y` \\"_s, u"Ω"_s});
    EXPECT_EQ(outcome.output, QString(u"<len><><a\nb><\"q\" $x `y` \\><Ω>"_s).toUtf8());
    EXPECT_EQ(outcome.status, 7);
}

TEST_F(ShntoolCompanion, ConvertsToTheNamedFile)
{
    const QString source = sample(u"a.wav"_s);
    const Outcome outcome = companion(namedOutput(u"never"_s, in(u"named.flac"_s), source));
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("100% OK"));
    EXPECT_EQ(QProcess::execute(u"flac"_s, {u"-t"_s, u"-s"_s, in(u"named.flac"_s)}), 0);
    EXPECT_TRUE(QFile::exists(source));
    EXPECT_FALSE(QFile::exists(in(u"a.flac"_s)));
    expectNoTraces();
}

TEST_F(ShntoolCompanion, ReplacesTheNamedFileWhenToldTo)
{
    const QString source = sample(u"a.wav"_s);
    ASSERT_TRUE(zolt::writeTextAtomically(in(u"named.flac"_s), u"old"_s));
    EXPECT_EQ(companion(namedOutput(u"always"_s, u"named.flac"_s, source)).status, 0);
    EXPECT_TRUE(contents(in(u"named.flac"_s)).startsWith("fLaC"));
    expectNoTraces();
}

TEST_F(ShntoolCompanion, KeepsAnExistingFileOtherwise)
{
    const QString source = sample(u"a.wav"_s);
    ASSERT_TRUE(zolt::writeTextAtomically(in(u"named.flac"_s), u"old"_s));
    const Outcome outcome = companion(namedOutput(u"never"_s, in(u"named.flac"_s), source));
    EXPECT_NE(outcome.status, 0);
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("named.flac"));
    EXPECT_EQ(contents(in(u"named.flac"_s)), "old");
    expectNoTraces();
}

TEST_F(ShntoolCompanion, KeepsAFileThatAppearsMeanwhile)
{
    standIn(u"while [ \"$1\" != -d ]; do shift; done; echo new >\"$2/a.flac\"; echo late >named.flac\n"_s);
    const Outcome outcome = companion(namedOutput(u"never"_s, u"named.flac"_s, u"a.wav"_s));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(contents(in(u"named.flac"_s)), "late\n");
    expectNoTraces();
}

TEST_F(ShntoolCompanion, CleansUpBehindAFailure)
{
    standIn(u"while [ \"$1\" != -d ]; do shift; done; echo part >\"$2/a.flac\"; echo no luck >&2; exit 3\n"_s);
    const Outcome outcome = companion(namedOutput(u"always"_s, u"named.flac"_s, u"a.wav"_s));
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "no luck\n");
    EXPECT_FALSE(QFile::exists(in(u"named.flac"_s)));
    expectNoTraces();
}

TEST_F(ShntoolCompanion, TakesEveryKnownEndingOffTheNameInAFolder)
{
    ASSERT_TRUE(QDir().mkpath(in(u"out"_s)));
    for (const QString& name : {u"a.aif"_s, u"b.AIFF"_s, u"c.c.WAV"_s, u"d.FLAC"_s, u"e.wav"_s}) {
        const QString base = name.left(name.lastIndexOf(u'.'));
        const QStringList call{u"conv"_s, u"-o"_s, u"flac"_s, u"-O"_s, u"never"_s, u"-d"_s, in(u"out"_s), sample(name)};
        EXPECT_EQ(companion(call).status, 0) << name.toStdString();
        EXPECT_TRUE(contents(in(u"out/%1.flac"_s.arg(base))).startsWith("fLaC"));
        EXPECT_NE(companion(call).status, 0) << "never over one that is there";
    }
    EXPECT_EQ(QDir(in(u"out"_s)).entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot).size(), 5);
}

TEST_F(ShntoolCompanion, FailsWhereTheToolLeavesNoFile)
{
    standIn(u"exit 0\n"_s);
    const Outcome outcome = companion(namedOutput(u"always"_s, u"named.flac"_s, u"a.wav"_s));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("did not give one file for: [named.flac]"));
}

TEST_F(ShntoolCompanion, NamesAFolderThatCannotBeWritten)
{
    const Outcome outcome = companion(namedOutput(u"always"_s, u"nowhere/named.flac"_s, sample(u"a.wav"_s)));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("nowhere/named.flac"));
}

TEST_F(ShntoolCompanion, EndsByTheSignalThatEndedTheTool)
{
    standIn(u"kill -KILL $$\n"_s);
    const Outcome outcome = companion(namedOutput(u"always"_s, u"named.flac"_s, u"a.wav"_s));
    EXPECT_EQ(outcome.how, QProcess::CrashExit);
    EXPECT_EQ(outcome.status, SIGKILL);
    expectNoTraces();
}

class ShntoolCompanionSignal : public ShntoolCompanion, public testing::WithParamInterface<int>
{
};

TEST_P(ShntoolCompanionSignal, EndsTheToolAndCleansUp)
{
    standIn(u"while [ \"$1\" != -d ]; do shift; done; echo part >\"$2/a.flac\"; echo $$ >pid.new; mv pid.new pid\n"
            "exec sleep 100\n"_s);
    QProcess process;
    start(process, QStringLiteral(SHNTOOL_COMPANION), namedOutput(u"always"_s, u"named.flac"_s, u"a.wav"_s));
    while (!QFile::exists(in(u"pid"_s)))
        QThread::msleep(5);
    ASSERT_EQ(::kill(pid_t(process.processId()), GetParam()), 0);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(process.exitCode(), GetParam());
    EXPECT_NE(::kill(pid_t(contents(in(u"pid"_s)).trimmed().toInt()), 0), 0) << "the tool still runs";
    EXPECT_FALSE(QFile::exists(in(u"named.flac"_s)));
    expectNoTraces();
}

INSTANTIATE_TEST_SUITE_P(Signals, ShntoolCompanionSignal, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST_F(ShntoolCompanion, FindsTheToolBehindCompanionsOnThePath)
{
    ASSERT_TRUE(QDir().mkpath(in(u"other"_s)));
    ASSERT_TRUE(QFile::link(QStringLiteral(SHNTOOL_COMPANION), in(u"bin/shntool"_s)));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SHNTOOL_COMPANION), in(u"other/shntool"_s)));
    environment_.insert(u"PATH"_s, in(u"bin"_s) + u':' + in(u"other"_s) + u":/usr/bin"_s);
    EXPECT_EQ(companion({u"len"_s, u"-h"_s}).output, run(u"/usr/bin/shntool"_s, {u"len"_s, u"-h"_s}).output);
}

TEST_F(ShntoolCompanion, FixNamesOutputsWithoutEndingsInCapitalsToo)
{
    environment_.insert(u"TMPDIR"_s, in(QString()));
    ASSERT_TRUE(QDir(in(QString())).mkpath(u"out"_s));
    const auto ragged = [this](const QString& name) { return sample(name, 44100, 16, 2, 0.51); };
    ASSERT_TRUE(QFile::rename(ragged(u"up.wav"_s), in(u"up.WAV"_s)));
    ASSERT_TRUE(QFile::rename(ragged(u"b.aiff"_s), in(u"b.aif"_s)));
    const Outcome outcome = companion(
        {u"fix"_s, u"-k"_s, u"-d"_s, u"out"_s, u"-o"_s, u"wav"_s, u"up.WAV"_s, u"b.aif"_s, ragged(u"c.wav"_s)});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(QDir(in(u"out"_s)).entryList(QDir::Files, QDir::Name),
              QStringList({u"b.wav"_s, u"c.wav"_s, u"up.wav"_s}));
    EXPECT_TRUE(QFile::exists(in(u"up.WAV"_s)));
    expectNoTraces();
}

TEST_F(ShntoolCompanion, FixGivesASecondFileOfOneNameAsItIs)
{
    standIn(u"printf '<%s>' \"$@\"\n"_s);
    environment_.insert(u"TMPDIR"_s, in(QString()));
    const QByteArray told = companion({u"fix"_s, in(u"x/a.WAV"_s), in(u"y/a.WAV"_s)}).output;
    EXPECT_TRUE(told.contains("/a.wav>")) << told.toStdString();
    EXPECT_TRUE(told.contains("/y/a.WAV>")) << told.toStdString();
    expectNoTraces();
}
