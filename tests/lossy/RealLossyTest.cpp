// Every source to MP3 and AAC with the real tools: channels, rates, lengths and the sound itself.
#include "LossyFixture.h"

#include "AudioSamples.h"
#include "Likeness.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/threads/DetachedThreads.h"
#include "support/FileSizeLimit.h"

#include <cmath>
#include <iostream>
#include <random>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// Plucked chords, one a half second, with a little noise: something like music.
Samples music(double rate, uint32_t channels, uint32_t bits, double seconds)
{
    Samples samples{.rate = rate, .channels = channels, .bits = bits, .frames = int(rate * seconds)};
    std::mt19937 random(7);
    const double scale = std::ldexp(0.5, int(bits) - 1);
    for (int frame = 0; frame < samples.frames; ++frame) {
        const double time = frame / rate, since = std::fmod(time, 0.5);
        for (uint32_t channel = 0; channel < channels; ++channel) {
            double value = 0.001 * (double(random()) / 2147483648.0 - 1);
            for (const double tone : {110.0, 164.8, 220.0, 277.2, 440.0, 1108.7})
                value += 0.15 * std::sin(6.2831853 * tone * (1 + int(time * 2) % 3 / 6.0) * time + channel) *
                         std::exp(-3 * since);
            samples.little += littleEndian(uint32_t(int32_t(value * scale)), int(bits / 8));
        }
    }
    return samples;
}

class RealLossy : public LossyTest
{
protected:
    RealLossy()
    {
        QDir().mkpath(pathOf(u"out"_s));
        tab.sourceEncodeButton->setState(false);
        tab.setDestination(pathOf(u"out"_s));
        tab.setComboLevel(192);
    }
    /// Makes a file of the kind. @return its path
    QString make(const QString& kind, const Samples& samples, const QString& name = u"it's 5% - Späti"_s)
    {
        const QString made = pathOf(name + u'.' + kind), type = kind.toLower();
        if (type == u"wav"_s) return writeFile(made, waveFile(samples));
        if (type.startsWith(u"aif"_s)) return writeFile(made, aiffFile(samples));
        const QString wav = writeFile(pathOf(u"source.wav"_s), waveFile(samples));
        if (type == u"flac"_s) runTool(u"flac"_s, {u"-s"_s, u"-f"_s, u"-o"_s, made, wav});
        if (type == u"shn"_s) runTool(toolPath(u"shorten"_s), {wav, made});
        if (type == u"wv"_s) runTool(u"wavpack"_s, {u"-q"_s, u"-y"_s, wav, u"-o"_s, made});
        if (type == u"tta"_s || type == u"m4a"_s)
            runTool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, wav, u"-c:a"_s,
                                  type == u"tta"_s ? u"tta"_s : u"alac"_s, made});
        QFile::remove(wav);
        return made;
    }
    void encode(const QStringList& files)
    {
        tab.addFiles(files);
        tab.executeCommand(nullptr);
        settle();
    }
    /// Waits for the tasks' threads too, and for what they have posted.
    void settle()
    {
        runQueue();
        waitForDetachedThreads();
        runPosted();
    }
    QString output(const QString& name) const { return pathOf(u"out/"_s + name); }
    QStringList outputs() const { return QDir(pathOf(u"out"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    QStringList reports()
    {
        QStringList texts;
        for (const auto& each : queue().outputWindows())
            texts += each->textField()->string();
        return texts;
    }
    static QByteArray decoded(const QString& file, int rate)
    {
        return runTool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, file, u"-map"_s, u"0:a"_s, u"-ar"_s,
                                     QString::number(rate), u"-f"_s, u"s16le"_s, u"-"_s});
    }
    static QByteArray tagOf(const QString& file, const QString& tag)
    {
        return runTool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags="_s + tag, u"-of"_s,
                                      u"default=nw=1:nk=1"_s, file})
            .trimmed();
    }
};

struct Cell
{
    QString source;
    bool mp3;
    bool works = true;
    bool deep = true; ///< the source's format holds 24 bits
};

void PrintTo(const Cell& cell, std::ostream* out)
{
    *out << cell.source.toStdString() << (cell.mp3 ? " to MP3" : " to AAC");
}

class RealLossyTable : public RealLossy, public testing::WithParamInterface<Cell>
{
protected:
    void check(double rate, uint32_t bits, uint32_t channels)
    {
        SCOPED_TRACE(testing::Message() << rate << " Hz, " << bits << " bits, " << channels << " channels");
        const Samples samples = music(rate, channels, bits, 1.0);
        const QString source = make(GetParam().source, samples);
        encode({source});
        ASSERT_EQ(reports(), QStringList());
        ASSERT_EQ(outputs().size(), 1) << outputs().join(u' ').toStdString();
        const QString made = output(outputs().first());
        const int expectedRate = rate > 48000 ? 48000 : int(rate);
        EXPECT_TRUE(probed(made, u"sample_rate,channels"_s)
                        .startsWith(QByteArray::number(expectedRate) + ',' + QByteArray::number(channels)));
        const QByteArray before = decoded(source, expectedRate), after = decoded(made, expectedRate);
        const auto frameBytes = qsizetype(2 * channels);
        EXPECT_NEAR(double(after.size() / frameBytes), double(before.size() / frameBytes), 2304);
        EXPECT_GT(likeness(before, after, int(channels)), 15);
        QFile::remove(made);
        QFile::remove(source);
    }
};

} // namespace

TEST_P(RealLossyTable, SoundsLikeItsSourceOrFails)
{
    choose(GetParam().mp3 ? lossyTitle::MP3 : lossyTitle::AAC, lossyTitle::CBR);
    if (!GetParam().works) {
        encode({make(GetParam().source, music(44100, 2, 16, 0.3))});
        ASSERT_EQ(reports().size(), 1);
        EXPECT_TRUE(reports().first().startsWith(u"Error encoding "_s)) << reports().first().toStdString();
        EXPECT_EQ(outputs(), QStringList());
        return;
    }
    for (const double rate : {44100.0, 48000.0, 96000.0})
        for (const uint32_t bits : {16u, 24u})
            for (const uint32_t channels : {1u, 2u})
                if (bits == 16 || GetParam().deep) check(rate, bits, channels);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, RealLossyTable,
    testing::Values(Cell{u"wav"_s, true}, Cell{u"aiff"_s, true}, Cell{u"aif"_s, true}, Cell{u"flac"_s, true},
                    Cell{u"FLAC"_s, true}, Cell{u"shn"_s, true, true, false}, Cell{u"wv"_s, true}, Cell{u"tta"_s, true},
                    Cell{u"m4a"_s, true}, Cell{u"wav"_s, false}, Cell{u"aiff"_s, false}, Cell{u"aif"_s, false},
                    Cell{u"flac"_s, false}, Cell{u"FLAC"_s, false}, Cell{u"shn"_s, false, true, false},
                    Cell{u"wv"_s, false, false}, Cell{u"tta"_s, false, false}, Cell{u"m4a"_s, false, false}),
    [](const auto& one) {
        const std::string spelled = one.param.source == u"FLAC"_s ? "CapitalFlac" : "";
        return (spelled.empty() ? one.param.source.toStdString() : spelled) + (one.param.mp3 ? "ToMP3" : "ToAAC");
    });

TEST_F(RealLossy, OutputsAreNamedAsForeseen)
{
    QStringList files;
    for (const QString& kind : {u"wav"_s, u"WAV"_s, u"aiff"_s, u"aif"_s, u"AIFF"_s, u"flac"_s, u"FLAC"_s, u"Flac"_s,
                                u"shn"_s, u"wv"_s, u"tta"_s, u"m4a"_s})
        files += make(kind, music(44100, 2, 16, 0.2), u"from "_s + QString::number(files.size()));
    choose(lossyTitle::MP3, lossyTitle::VBR);
    tab.addFiles(files);
    QStringList foreseen;
    for (const auto& item : tab.workPlan().items)
        foreseen += path::lastComponent(item.outputs.first());
    foreseen.sort();
    tab.executeCommand(nullptr);
    settle();
    EXPECT_EQ(outputs(), foreseen);
    EXPECT_EQ(foreseen.size(), files.size());
}

TEST_F(RealLossy, MP3sOfFlacAndAppleLosslessGetTagsAndCover)
{
    const QString cover = pathOf(u"cover.png"_s);
    runTool(u"ffmpeg"_s,
            {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, u"color=red:s=32x32"_s, u"-frames:v"_s, u"1"_s, cover});
    const QString flac = make(u"flac"_s, music(44100, 2, 16, 0.5), u"one"_s);
    runTool(u"metaflac"_s, {u"--set-tag=TITLE=Späti"_s, u"--set-tag=ARTIST=Привет мир"_s, u"--set-tag=ALBUM=音楽"_s,
                            u"--import-picture-from="_s + cover, flac});
    const QString bare = make(u"m4a"_s, music(44100, 2, 16, 0.5), u"bare"_s), lossless = pathOf(u"two.m4a"_s);
    runTool(u"ffmpeg"_s, {u"-v"_s,
                          u"error"_s,
                          u"-i"_s,
                          bare,
                          u"-i"_s,
                          cover,
                          u"-map"_s,
                          u"0:a"_s,
                          u"-map"_s,
                          u"1:v"_s,
                          u"-c"_s,
                          u"copy"_s,
                          u"-disposition:v"_s,
                          u"attached_pic"_s,
                          u"-metadata"_s,
                          u"title=Späti"_s,
                          u"-metadata"_s,
                          u"artist=Привет мир"_s,
                          u"-metadata"_s,
                          u"album=音楽"_s,
                          u"-f"_s,
                          u"ipod"_s,
                          lossless});
    choose(lossyTitle::MP3, lossyTitle::CBR);
    encode({flac, lossless});
    EXPECT_EQ(reports(), QStringList());
    for (const QString& name : {u"one.mp3"_s, u"two.mp3"_s}) {
        EXPECT_EQ(tagOf(output(name), u"title"_s), "Späti");
        EXPECT_EQ(tagOf(output(name), u"artist"_s), "Привет мир");
        EXPECT_EQ(tagOf(output(name), u"album"_s), "音楽");
        EXPECT_EQ(runTool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-select_streams"_s, u"v"_s, u"-show_entries"_s,
                                         u"stream=width,height"_s, u"-of"_s, u"csv=p=0"_s, output(name)})
                      .trimmed(),
                  "32,32")
            << name.toStdString();
    }
}

TEST_F(RealLossy, AACFilesNameTheirSettingsAndAreGapless)
{
    const QString flac = make(u"flac"_s, music(44100, 2, 16, 0.5), u"one"_s);
    runTool(u"metaflac"_s, {u"--set-tag=ARTIST=Привет"_s, flac});
    choose(lossyTitle::AAC, lossyTitle::VBR);
    encode({flac, make(u"wav"_s, music(44100, 2, 16, 0.5), u"two"_s)});
    for (const QString& name : {u"one.m4a"_s, u"two.m4a"_s}) {
        EXPECT_TRUE(tagOf(output(name), u"encoder"_s).endsWith("True VBR Quality 88"));
        EXPECT_TRUE(runTool(u"AtomicParsley"_s, {output(name), u"-t"_s}).contains("\"pgap\" contains: true"));
    }
    EXPECT_EQ(tagOf(output(u"one.m4a"_s), u"artist"_s), "Привет");
    EXPECT_EQ(outputs(), QStringList({u"one.m4a"_s, u"two.m4a"_s}));
}

TEST_F(RealLossy, AnExistingMP3IsRefusedAndStays)
{
    writeFile(output(u"a.mp3"_s), "precious");
    const QString source = make(u"wav"_s, music(44100, 2, 16, 0.3), u"a"_s);
    choose(lossyTitle::MP3, lossyTitle::CBR);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    encode({source});
    EXPECT_EQ(reports().size(), 1);
    EXPECT_TRUE(QFile::exists(source));
    EXPECT_EQ(fileBytes(output(u"a.mp3"_s)), "precious");
}

TEST_F(RealLossy, AFullDiskIsAnErrorAndKeepsTheSource)
{
    const QString source = make(u"wav"_s, music(44100, 2, 16, 4), u"a"_s);
    for (const QString& format : {lossyTitle::MP3, lossyTitle::AAC}) {
        const LogCapture log;
        choose(format, lossyTitle::CBR);
        tab.deleteOriginalsButton->setState(true);
        panels_.answerAlert(1);
        const auto before = reports().size();
        {
            const FileSizeLimit limit(20000);
            encode({source});
        }
        EXPECT_EQ(reports().size(), before + 1) << format.toStdString();
        EXPECT_TRUE(QFile::exists(source));
    }
}

TEST_F(RealLossy, ACancelledMP3LeavesNoToolRunning)
{
    const QString source = make(u"wav"_s, music(44100, 1, 16, 60), u"long"_s);
    choose(lossyTitle::MP3, lossyTitle::VBR);
    tab.addFiles({source});
    tab.executeCommand(nullptr);
    const auto task = queued<EncodeMP3Task>().at(0);
    ASSERT_TRUE(runUntil([&] {
        return task->topTextField()->stringValue().startsWith(u"Encoding to MP3: "_s) &&
               QFile::exists(output(u"long.mp3"_s));
    }));
    task->cancelTask(nullptr);
    settle();
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_TRUE(QFile::exists(source));
    EXPECT_EQ(test::run(u"pgrep"_s, {u"-f"_s, output(u"long.mp3"_s)}), QByteArray());
    EXPECT_EQ(outputs(), QStringList({u"long.mp3"_s})) << "kept: what was encoded stays";
}
