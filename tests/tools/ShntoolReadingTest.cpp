#include "CompanionFixture.h"

#include <QFileInfo>
#include <QSet>

#include <tuple>

using namespace zolt::test;

namespace {

class ShntoolReading : public CompanionFixture
{
protected:
    /// A recording in one of the formats, made from a WAV of the same name.
    QString recording(const QString& extension, int rate, int bits, int channels, double seconds = 1) const
    {
        const QString wav = sample(u"a.wav"_s, rate, bits, channels, seconds);
        if (extension == u"wav"_s) return wav;
        const QString made = in(u"a."_s + extension);
        const QStringList call = extension == u"flac"_s ? QStringList{u"flac"_s, u"-s"_s, u"-f"_s, wav}
                                 : extension == u"wv"_s ? QStringList{u"wavpack"_s, u"-q"_s, u"-y"_s, wav}
                                                        : QStringList{u"sox"_s, u"-D"_s, wav, made};
        EXPECT_EQ(run(call[0], call.mid(1)).status, 0) << made.toStdString();
        return made;
    }

    /// The samples, of any length in bits, widened to 32.
    QByteArray audio(const QString& path) const
    {
        const QString name = QFileInfo(path).suffix() == u"wv"_s ? unpacked(path) : path;
        return run(u"sox"_s, {u"-D"_s, name, u"-t"_s, u"s32"_s, u"-"_s}).output;
    }

    QString unpacked(const QString& path) const
    {
        EXPECT_EQ(run(u"wvunpack"_s, {u"-q"_s, u"-y"_s, path, u"-o"_s, in(u"unpacked.wav"_s)}).status, 0);
        return in(u"unpacked.wav"_s);
    }

    QString folder(const QString& name) const
    {
        QDir(in(QString())).mkpath(name);
        return in(name);
    }

    Outcome succeed(const QStringList& arguments) const
    {
        const Outcome outcome = companion(arguments);
        EXPECT_EQ(outcome.status, 0) << arguments.join(u' ').toStdString() << '\n' << outcome.errors.toStdString();
        return outcome;
    }

    QByteArray hash(const QString& path) const { return succeed({u"hash"_s, u"-q"_s, path}).output.left(32); }
};

using Kind = std::tuple<std::string, int, int, int>; // extension, samples a second, bits, channels

class ShntoolReadingOf : public ShntoolReading, public testing::WithParamInterface<Kind>
{
protected:
    QString recordingOfKind(double seconds = 1) const
    {
        const auto [extension, rate, bits, channels] = GetParam();
        return recording(QString::fromStdString(extension), rate, bits, channels, seconds);
    }
};

} // namespace

TEST_P(ShntoolReadingOf, ListsAndDescribes)
{
    const QString file = recordingOfKind();
    EXPECT_THAT(succeed({u"len"_s, file}).output.toStdString(), testing::HasSubstr("(1 file)"));
    EXPECT_THAT(
        succeed({u"info"_s, file}).output.toStdString(),
        testing::AllOf(
            testing::HasSubstr("0x0001 (Microsoft PCM)"),
            testing::HasSubstr(
                QStringLiteral("Samples/sec:                  %1").arg(std::get<1>(GetParam())).toStdString())));
}

TEST_P(ShntoolReadingOf, HashesAsTheWavDoes)
{
    const QString file = recordingOfKind();
    EXPECT_EQ(hash(file), hash(in(u"a.wav"_s)));
}

TEST_P(ShntoolReadingOf, ConvertsBitForBit)
{
    const QString file = recordingOfKind(), out = folder(u"out"_s);
    for (const QString& format : {u"flac"_s, u"wav"_s, u"wv"_s}) {
        succeed({u"conv"_s, u"-o"_s, format, u"-d"_s, out, file});
        EXPECT_EQ(audio(out + u"/a."_s + format), audio(in(u"a.wav"_s))) << format.toStdString();
    }
}

TEST_P(ShntoolReadingOf, SplitsAndJoinsBitForBit)
{
    const QString file = recordingOfKind(2), out = folder(u"out"_s), pieces = folder(u"pieces"_s);
    ASSERT_TRUE(zolt::writeTextAtomically(in(u"points.txt"_s), u"0:01.000\n"_s));
    succeed({u"split"_s, u"-f"_s, in(u"points.txt"_s), u"-o"_s, u"wav"_s, u"-d"_s, pieces, file});
    const QString first = pieces + u"/split-track01.wav"_s, second = pieces + u"/split-track02.wav"_s;
    EXPECT_EQ(audio(first) + audio(second), audio(in(u"a.wav"_s)));
    EXPECT_FALSE(audio(second).isEmpty());
    for (const QString& format : {u"wav"_s, u"flac"_s}) {
        succeed({u"join"_s, u"-n"_s, u"-o"_s, format, u"-d"_s, out, file, file});
        EXPECT_EQ(audio(out + u"/joined."_s + format), audio(in(u"a.wav"_s)) + audio(in(u"a.wav"_s)));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ShntoolReadingOf,
                         testing::Values(Kind{"wav", 48000, 24, 2}, Kind{"wav", 96000, 24, 2},
                                         Kind{"wav", 192000, 24, 2}, Kind{"flac", 48000, 24, 2},
                                         Kind{"flac", 96000, 24, 2}, Kind{"flac", 192000, 24, 2},
                                         Kind{"wv", 48000, 24, 2}, Kind{"wv", 96000, 24, 2}, Kind{"wv", 192000, 24, 2},
                                         Kind{"aiff", 48000, 24, 2}, Kind{"aiff", 96000, 24, 2},
                                         Kind{"aiff", 192000, 24, 2}, Kind{"wv", 44100, 16, 2},
                                         Kind{"wav", 48000, 24, 6}, Kind{"flac", 48000, 16, 6},
                                         Kind{"wv", 48000, 24, 6}));

TEST_F(ShntoolReading, StillDeclinesToFixAndToCueWhatIsNoCdAudio)
{
    const QString file = recording(u"flac"_s, 96000, 24, 2);
    EXPECT_NE(companion({u"fix"_s, u"-d"_s, folder(u"out"_s), file, file}).status, 0);
    EXPECT_NE(companion({u"cue"_s, u"-c"_s, file}).status, 0);
}

TEST_F(ShntoolReading, GivesTheObjectToNoProgramThatTheToolStarts)
{
    standIn(u"echo \"<$LD_PRELOAD>\"; sh -c 'cat /proc/$$/maps' | grep -c zolt-shntool\n"_s);
    EXPECT_EQ(companion({u"len"_s}).output, "<>\n0\n");
    EXPECT_THAT(companion(QStringList{u"conv"_s, u"-n"_s, in(u"b.wav"_s)}).output.toStdString(),
                testing::HasSubstr("<>\n0\n"));
}

TEST_F(ShntoolReading, LeavesWhatElseIsPreloadedAsItStands)
{
    const QString other = QFileInfo(QStringLiteral(SHNTOOL_OBJECT)).path() + u"/none.so"_s;
    standIn(u"echo \"<$LD_PRELOAD>\"\n"_s);
    environment_.insert(u"LD_PRELOAD"_s, other);
    EXPECT_EQ(companion({u"len"_s}).output, "<" + other.toUtf8() + ">\n");
}

TEST_F(ShntoolReading, LoadsTheObjectFromAFolderWhoseNameTheLoaderWouldCut)
{
    const QString tools = folder(u"my tools: all/bin"_s) + u"/shntool"_s;
    ASSERT_TRUE(QFile::copy(QStringLiteral(SHNTOOL_COMPANION), tools));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SHNTOOL_OBJECT), in(u"my tools: all/zolt-shntool.so"_s)));
    const Outcome outcome = run(tools, {u"len"_s, recording(u"flac"_s, 96000, 24, 2)});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    standIn(u"echo \"<$LD_PRELOAD>\"\n"_s);
    EXPECT_EQ(run(tools, {u"len"_s}).output, "<>\n");
}

TEST_F(ShntoolReading, RunsTheToolAsItIsWithoutTheObject)
{
    ASSERT_TRUE(QFile::copy(QStringLiteral(SHNTOOL_COMPANION), folder(u"alone"_s) + u"/shntool"_s));
    const QString good = sample(u"good.wav"_s), file = recording(u"wav"_s, 96000, 24, 2);
    const Outcome outcome = run(in(u"alone/shntool"_s), {u"len"_s, good});
    EXPECT_EQ(outcome.output, run(u"/usr/bin/shntool"_s, {u"len"_s, good}).output);
    EXPECT_EQ(outcome.errors, QByteArray());
    EXPECT_NE(run(in(u"alone/shntool"_s), {u"len"_s, file}).status, 0);
}
