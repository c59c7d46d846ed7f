// The tab and its tasks against the real tools and the companions: every format from the same WAV files.
#include "AudioSamples.h"
#include "DecodeFixture.h"

#include "engine/ZOLTTask.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/threads/DetachedThreads.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// One format, and how a file of it is made of a WAV file.
struct Format
{
    const char* name;
    QString extension;
    QString tool;
    QStringList (*arguments)(const QString& wav, const QString& output);
};

void PrintTo(const Format& format, std::ostream* out)
{
    *out << format.name;
}

const std::vector<Format>& formats()
{
    static const std::vector<Format> table{
        {"Flac", u"flac"_s, u"flac"_s,
         [](const QString& wav, const QString& output) {
             return QStringList{u"-s"_s, u"-f"_s, wav, u"-o"_s, output};
         }},
        {"Shorten", u"shn"_s, u"shorten"_s,
         [](const QString& wav, const QString& output) {
             return QStringList{wav, output};
         }},
        {"Wavpack", u"wv"_s, u"wavpack"_s,
         [](const QString& wav, const QString& output) {
             return QStringList{u"-q"_s, u"-y"_s, wav, u"-o"_s, output};
         }},
        {"TrueAudio", u"tta"_s, u"ttaenc"_s,
         [](const QString& wav, const QString& output) {
             return QStringList{wav, u"-o"_s, output};
         }},
        {"MonkeysAudio", u"ape"_s, u"mac"_s,
         [](const QString& wav, const QString& output) {
             return QStringList{wav, output, u"-c2000"_s};
         }},
        {"AppleLossless", u"m4a"_s, u"/usr/bin/ffmpeg"_s,
         [](const QString& wav, const QString& output) {
             return QStringList{u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, wav, u"-c:a"_s, u"alac"_s, output};
         }},
    };
    return table;
}

class RealDecode : public DecodeTest
{
protected:
    /// Makes a file of a format. @return its path
    QString make(const Format& format, const QString& base, const Samples& samples) const
    {
        const QString wav = writeFile(elsewhere_.filePath(u"source.wav"_s), waveFile(samples));
        const QString made = pathOf(base + u'.' + format.extension);
        const QString tool = format.tool.startsWith(u'/') ? format.tool : toolPath(format.tool);
        int status = -1;
        const QByteArray text = test::run(tool, format.arguments(wav, made), &status);
        EXPECT_EQ(status, 0) << text.toStdString();
        return made;
    }
    void decode(const QStringList& files, const QString& format)
    {
        tab.outputFormatMatrix->selectTitle(format);
        for (const QString& each : files)
            tab.addFile(each);
        tab.executeCommand(nullptr);
        runQueue();
        waitForDetachedThreads();
        runPosted();
    }
    /// What stands in the folder besides.
    QStringList othersThan(const QString& source) const
    {
        QStringList names = QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        names.removeAll(path::lastComponent(source));
        return names;
    }
    void deleteOriginals()
    {
        tab.deleteOriginalsButton->setState(true);
        panels_.answerAlert(1);
    }
    void damageIn(const QString& path) const
    {
        QByteArray bytes = fileBytes(path);
        bytes[bytes.size() / 2] = char(bytes[bytes.size() / 2] ^ 0x10);
        writeFile(path, bytes);
    }

    QTemporaryDir elsewhere_;
};

class RealFormat : public RealDecode, public testing::WithParamInterface<Format>
{
};

INSTANTIATE_TEST_SUITE_P(Of, RealFormat, testing::ValuesIn(formats()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(RealFormat, BecomesTheSameSamplesInWavAndAiff)
{
    const Samples samples = makeSamples(44100, 2, 16, 60001);
    const QString source = make(GetParam(), u"a"_s, samples);
    decode({source}, u"WAV"_s);
    decode({source}, u"AIFF"_s);
    EXPECT_TRUE(decodedByFfmpeg(pathOf(u"a.wav"_s), 16) == samples.little);
    EXPECT_TRUE(decodedByFfmpeg(pathOf(u"a.aiff"_s), 16) == samples.little);
    EXPECT_EQ(othersThan(source), QStringList({u"a.aiff"_s, u"a.wav"_s})) << "and no temporary file";
    EXPECT_TRUE(queue().outputWindows().empty());
}

TEST_P(RealFormat, SourceGoesAfterAGoodDecodeWhereAskedFor)
{
    const QString source = make(GetParam(), u"a"_s, makeSamples(44100, 2, 16, 5000));
    deleteOriginals();
    decode({source}, u"AIFF"_s);
    EXPECT_FALSE(QFile::exists(source));
    EXPECT_TRUE(exists(u"a.aiff"_s));
}

TEST_P(RealFormat, CutFileFailsItsRowAndStaysButForTrueAudio)
{
    const LogCapture log;
    const QString source = make(GetParam(), u"a"_s, makeSamples(44100, 2, 16, 200000));
    QFile::resize(source, QFileInfo(source).size() * 2 / 3);
    deleteOriginals();
    decode({source}, u"WAV"_s);
    const bool seen = GetParam().extension != u"tta";
    EXPECT_EQ(QFile::exists(source), seen) << "kept: nobody reads the exit status of ttaenc";
    EXPECT_EQ(queue().panelArray().size(), seen ? 1U : 0U);
    EXPECT_EQ(queue().outputWindows().size(), seen ? 1U : 0U);
}

TEST_F(RealDecode, FlippedBitIsSeenWhereTheFormatHasChecksums)
{
    const LogCapture log;
    QStringList sources;
    for (const Format& format : formats()) {
        if (format.extension == u"shn" || format.extension == u"m4a") continue;
        sources += make(format, QLatin1StringView(format.name), makeSamples(44100, 2, 16, 200000));
        damageIn(sources.last());
    }
    decode(sources, u"WAV"_s);
    EXPECT_EQ(queue().panelArray().size(), 3U) << "flac, wvunpack and mac tell; ttaenc does, and is not listened to";
    int status = 0;
    test::run(toolPath(u"ttaenc"_s), {u"-t"_s, pathOf(u"TrueAudio.tta"_s)}, &status);
    EXPECT_EQ(status, 1);
}

TEST_F(RealDecode, ReportOfAFailureHoldsTheToolsWords)
{
    const LogCapture log;
    const QString source = make(formats()[1], u"a"_s, makeSamples(44100, 2, 16, 90000));
    QFile::resize(source, QFileInfo(source).size() / 2);
    decode({source}, u"WAV"_s);
    ASSERT_EQ(queue().outputWindows().size(), 1U);
    EXPECT_TRUE(queue().outputWindows()[0]->textField()->string().contains(u"error while transferring"_s))
        << queue().outputWindows()[0]->textField()->string().toStdString();
}

TEST_F(RealDecode, MixedFolderInOneRunAtTwoAndEightTasks)
{
    const Samples samples = makeSamples(48000, 2, 16, 30000);
    QStringList sources;
    for (int i = 0; i < 4; ++i) {
        for (const Format& format : formats())
            sources += make(format, u"%1-%2"_s.arg(QLatin1StringView(format.name)).arg(i), samples);
    }
    for (const int limit : {2, 8}) {
        queue().maxThreadsChanged({QString(), nullptr, limit});
        for (const QString& format : {u"WAV"_s, u"AIFF"_s}) {
            decode(sources, format);
            for (const QString& source : sources) {
                const QString output = path::inFolderWithExtension(source, folder(), format.toLower());
                EXPECT_TRUE(decodedByFfmpeg(output, 16) == samples.little) << output.toStdString();
                QFile::remove(output);
            }
            EXPECT_TRUE(queue().panelArray().empty());
        }
    }
}

TEST_F(RealDecode, DamagedMonkeysAudioIsReportedByItsNumber)
{
    const LogCapture log;
    const auto ape =
        std::find_if(formats().begin(), formats().end(), [](const Format& each) { return each.tool == u"mac"; });
    const QString source = make(*ape, u"a"_s, makeSamples(44100, 2, 16, 200000));
    damageIn(source);
    decode({source}, u"WAV"_s);
    ASSERT_EQ(queue().outputWindows().size(), 1U);
    EXPECT_TRUE(queue().outputWindows()[0]->textField()->string().contains(u"Error: 1009"_s));
}

class RealMixedQueue : public RealDecode, public testing::WithParamInterface<int>
{
};

INSTANTIATE_TEST_SUITE_P(AtOnce, RealMixedQueue, testing::Values(2, 3, 8));

TEST_P(RealMixedQueue, TwoHundredSmallFilesOfAllFormatsNeverStall)
{
    const Samples samples = makeSamples(44100, 2, 16, 600);
    QStringList sources;
    for (const Format& format : formats()) {
        const QByteArray bytes = fileBytes(make(format, u"first"_s, samples));
        for (int number = 0; number < 34; ++number)
            sources += writeFile(
                pathOf(u"%1-%2.%3"_s.arg(number).arg(QLatin1StringView(format.name), format.extension)), bytes);
    }
    queue().maxThreadsChanged({QString(), nullptr, GetParam()});
    for (int round = 0; round < 2; ++round) {
        decode(sources, u"WAV"_s);
        EXPECT_TRUE(queue().panelArray().empty()) << "all complete";
        for (const QString& source : std::as_const(sources)) {
            const QString output = path::inFolderWithExtension(source, folder(), u"wav"_s);
            EXPECT_TRUE(fileBytes(output).endsWith(samples.little)) << output.toStdString();
            QFile::remove(output);
        }
    }
}
