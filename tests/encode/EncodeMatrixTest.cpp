// Every source to every target with the real tools: what comes out exactly, and what fails.
#include "AudioSamples.h"
#include "encode/EncodeTab.h"
#include "engine/OutputWindowController.h"
#include "engine/ZOLTTask.h"
#include "platform/desktop/ToolsDirectory.h"
#include "support/Programs.h"
#include "support/TabFixture.h"
#include "tags/AACTagsHelper.h"
#include "tags/TagLibTagsHelper.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

enum class End {
    Exact, ///< the output's samples are the source's
    Fails  ///< the row ends in Error, with the tool's own words
};

struct Cell
{
    QString source; ///< extension
    QString target;
    End end;
    bool tagged = false; ///< the source's title reaches the output
    QString words = {};  ///< that the report of a failure holds
};

void PrintTo(const Cell& cell, std::ostream* out)
{
    *out << qPrintable(cell.source) << " to " << qPrintable(cell.target);
}

// clang-format off
const std::vector<Cell>& cells()
{
    using enum End;
    static const QString recognised = u"not a recognized file type"_s, raw = u"for encoding a raw file"_s,
                         service = u"to Apple Lossless:"_s;
    static const std::vector<Cell> table{
        {u"wav"_s,  u"SHN"_s, Exact}, {u"wav"_s,  u"FLAC"_s, Exact},
        {u"wav"_s,  u"APE"_s, Exact},
        {u"wav"_s,  u"WV"_s, Exact},  {u"wav"_s,  u"TTA"_s, Exact},  {u"wav"_s,  u"M4A"_s, Exact},
        {u"aiff"_s, u"SHN"_s, Exact}, {u"aiff"_s, u"FLAC"_s, Exact, true},
        {u"aiff"_s, u"APE"_s, Exact},
        {u"aiff"_s, u"WV"_s, Exact},  {u"aiff"_s, u"TTA"_s, Exact},  {u"aiff"_s, u"M4A"_s, Exact},
        {u"flac"_s, u"SHN"_s, Exact}, {u"flac"_s, u"FLAC"_s, Exact, true},
        {u"flac"_s, u"APE"_s, Fails},
        {u"flac"_s, u"WV"_s, Fails, false, recognised}, {u"flac"_s, u"TTA"_s, Fails}, {u"flac"_s, u"M4A"_s, Exact, true},
        {u"shn"_s,  u"SHN"_s, Exact}, {u"shn"_s,  u"FLAC"_s, Exact},
        {u"shn"_s,  u"APE"_s, Fails},
        {u"shn"_s,  u"WV"_s, Fails, false, recognised}, {u"shn"_s,  u"TTA"_s, Fails}, {u"shn"_s,  u"M4A"_s, Exact},
        {u"ape"_s,  u"SHN"_s, Exact}, {u"ape"_s,  u"FLAC"_s, Exact, true},
        {u"ape"_s,  u"APE"_s, Fails},
        {u"ape"_s,  u"WV"_s, Fails, false, recognised}, {u"ape"_s,  u"TTA"_s, Fails}, {u"ape"_s,  u"M4A"_s, Exact},
        {u"wv"_s,   u"SHN"_s, Exact}, {u"wv"_s,   u"FLAC"_s, Fails, false, raw},
        {u"wv"_s,   u"APE"_s, Fails},
        {u"wv"_s,   u"WV"_s, Exact, true},  {u"wv"_s,   u"TTA"_s, Fails}, {u"wv"_s,   u"M4A"_s, Fails, false, service},
        {u"tta"_s,  u"SHN"_s, Exact}, {u"tta"_s,  u"FLAC"_s, Fails, false, raw},
        {u"tta"_s,  u"APE"_s, Fails},
        {u"tta"_s,  u"WV"_s, Fails, false, recognised}, {u"tta"_s,  u"TTA"_s, Fails}, {u"tta"_s,  u"M4A"_s, Fails, false, service},
        {u"m4a"_s,  u"SHN"_s, Fails}, {u"m4a"_s,  u"FLAC"_s, Exact, true},
        {u"m4a"_s,  u"APE"_s, Exact, true},
        {u"m4a"_s,  u"WV"_s, Exact, true},  {u"m4a"_s,  u"TTA"_s, Exact},  {u"m4a"_s,  u"M4A"_s, Fails, false, service},
    };
    return table;
}
// clang-format on

class EncodeMatrix : public TabFixture<EncodeTab>, public testing::WithParamInterface<Cell>
{
protected:
    EncodeMatrix() : TabFixture(Constants::ENCODE)
    {
        QDir().mkpath(pathOf(u"out"_s));
        tab.sourceEncodeButton->setState(false);
        tab.setDestination(pathOf(u"out"_s));
        tab.outputFormatMatrix->selectTitle(GetParam().target);
        tab.displayRelevantOptions();
    }
    /// Makes a source of the cell's kind with the title "Späti" where its kind bears one.
    QString source()
    {
        const QString type = GetParam().source, made = pathOf(u"it's 5% - Späti."_s + type);
        const QString wav = pathOf(u"source.wav"_s);
        writeFile(wav, waveFile(samples_));
        make(type, wav, made);
        QFile::remove(wav);
        return made;
    }
    static TagsObject titled()
    {
        TagsObject tags;
        tags.setTitleText(u"Späti"_s);
        return tags;
    }
    void make(const QString& type, const QString& wav, const QString& made) const
    {
        if (type == u"wav"_s) {
            QFile::copy(wav, made);
        } else if (type == u"aiff"_s) {
            writeFile(made, aiffFile(samples_));
            TagLibTagsHelper().writeTagsForAIFFFileTagObject(made, titled());
        } else if (type == u"flac"_s) {
            runTool(u"flac"_s, {u"-s"_s, u"-T"_s, u"TITLE=Späti"_s, u"-o"_s, made, wav});
        } else if (type == u"shn"_s) {
            runTool(toolPath(u"shorten"_s), {wav, made});
        } else if (type == u"ape"_s) {
            runTool(toolPath(u"mac"_s), {wav, made, u"-c2000"_s});
            TagLibTagsHelper().writeTagsForAPEFileTagObjectWriteEmptyTags(made, titled(), false);
        } else if (type == u"wv"_s) {
            runTool(u"wavpack"_s, {u"-q"_s, u"-w"_s, u"Title=Späti"_s, wav, u"-o"_s, made});
        } else {
            const QString codec = type == u"m4a"_s ? u"alac"_s : u"tta"_s;
            runTool(u"ffmpeg"_s,
                    {u"-v"_s, u"error"_s, u"-i"_s, wav, u"-c:a"_s, codec, u"-metadata"_s, u"title=Späti"_s, made});
        }
    }
    QStringList outputs() const { return QDir(pathOf(u"out"_s)).entryList(QDir::Files | QDir::Hidden); }
    QString output() const { return pathOf(u"out/it's 5% - Späti."_s + GetParam().target.toLower()); }
    static QString titleOf(const QString& file)
    {
        const QByteArray tags = test::run(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s,
                                                         u"format_tags=title"_s, u"-of"_s, u"csv=p=0"_s, file});
        return QString::fromUtf8(tags).trimmed();
    }

    const Samples samples_ = makeSamples(44100, 2, 16, 20000);
};

std::string nameOf(const testing::TestParamInfo<Cell>& cell)
{
    return (cell.param.source + u"To"_s + cell.param.target).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Cells, EncodeMatrix, testing::ValuesIn(cells()), nameOf);

} // namespace

TEST_P(EncodeMatrix, EndsAsTold)
{
    const LogCapture log;
    const QString file = source();
    const QByteArray before = decodedByFfmpeg(file, 16);
    tab.addFiles({file});
    ASSERT_EQ(tab.fileNames().count(), 1);
    const WorkPlan plan = tab.workPlan();
    ASSERT_EQ(missingTools(plan.tools).size(), 0) << "for " << plan.tools.join(u' ').toStdString();
    const auto task = tasksOfPress().at(0);
    runQueue();
    EXPECT_EQ(decodedByFfmpeg(file, 16), before) << "the source is as it was";
    if (GetParam().end == End::Exact) {
        EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
        EXPECT_EQ(outputs(), QStringList({path::lastComponent(output())})) << "no temporary file";
        EXPECT_EQ(plan.items.at(0).outputs, QStringList({output()}));
        EXPECT_EQ(decodedByFfmpeg(output(), 16), before);
        EXPECT_EQ(titleOf(output()), GetParam().tagged ? u"Späti"_s : QString());
        EXPECT_TRUE(queue().outputWindows().empty());
        EXPECT_TRUE(plan.items.at(0).caution.isEmpty());
    } else {
        EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
        ASSERT_EQ(queue().outputWindows().size(), 1U);
        const QString report = queue().outputWindows()[0]->textField()->string();
        EXPECT_TRUE(report.contains(GetParam().words)) << report.toStdString();
        for (const QString& left : outputs())
            EXPECT_EQ(left, path::lastComponent(output())) << "no temporary file";
    }
    EXPECT_EQ(log.count(u"RangeException"_s), 0);
}

class EncodeReal : public TabFixture<EncodeTab>
{
protected:
    EncodeReal() : TabFixture(Constants::ENCODE) {}
    QString wave(const QString& name, int frames = 20000, uint32_t bits = 16, double rate = 44100) const
    {
        QDir().mkpath(path::deletingLastComponent(pathOf(name)));
        return writeFile(pathOf(name), waveFile(makeSamples(rate, 2, bits, frames)));
    }
    std::vector<std::shared_ptr<ZOLTTask>> encode(const QString& target, const QStringList& files)
    {
        tab.outputFormatMatrix->selectTitle(target);
        tab.addFiles(files);
        return tasksOfPress();
    }
    QByteArray content(const QString& name) const { return fileBytes(pathOf(name)); }
    const LogCapture log_;
};

TEST_F(EncodeReal, ShortenSetIsFollowedByAListOfItsOutputsBesideTheFirst)
{
    tab.generateMD5Button->setState(true);
    encode(u"SHN"_s, {wave(u"one/b.wav"_s), wave(u"two/a.wav"_s, 10000)});
    ASSERT_TRUE(runUntil([&] { return exists(u"one/md5sum.md5"_s); }));
    runQueue();
    const auto sum = [&](const QString& name) { return test::run(u"md5sum"_s, {pathOf(name)}).left(32); };
    const QByteArray list = content(u"one/md5sum.md5"_s);
    EXPECT_TRUE(list.endsWith("\n\n" + sum(u"one/b.shn"_s) + " *b.shn\n" + sum(u"two/a.shn"_s) + " *a.shn\n"))
        << list.toStdString();
    EXPECT_TRUE(queue().outputWindows().empty());
}

TEST_F(EncodeReal, ListNamesWhatWasMadeHoweverASourceIsSpelled)
{
    tab.generateMD5Button->setState(true);
    encode(u"SHN"_s, {wave(u"a.WAV"_s), writeFile(pathOf(u"b.aif"_s), aiffFile(makeSamples(44100, 2, 16, 9000)))});
    ASSERT_TRUE(runUntil([&] { return exists(u"md5sum.md5"_s); }));
    runQueue();
    for (const QString& name : {u"a.shn"_s, u"b.shn"_s}) {
        const QByteArray sum = test::run(u"md5sum"_s, {pathOf(name)}).left(32);
        EXPECT_TRUE(exists(name));
        EXPECT_TRUE(content(u"md5sum.md5"_s).contains(sum + " *" + name.toUtf8() + '\n')) << name.toStdString();
    }
}

TEST_F(EncodeReal, ListOptionOfAnotherTargetWritesNoList)
{
    tab.generateMD5Button->setState(true);
    encode(u"FLAC"_s, {wave(u"a.wav"_s)});
    runQueue();
    runPosted();
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_FALSE(exists(u"md5sum.md5"_s));
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(EncodeReal, CancelledSetWithItsListKeepsItsSources)
{
    tab.generateMD5Button->setState(true);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    const QStringList files{wave(u"a.wav"_s, 2000000), wave(u"b.wav"_s, 2000000), wave(u"c.wav"_s, 2000000)};
    const auto tasks = encode(u"SHN"_s, files);
    queue().cancelAllTasks(nullptr);
    ASSERT_TRUE(runUntil([&] { return exists(u"md5sum.md5"_s); })) << "kept: a cancelled set is followed too";
    runQueue();
    EXPECT_TRUE(tasks.back()->cancelled());
    for (std::size_t i = 0; i < tasks.size(); ++i) // one may end well while the walk waits for another's tool
        EXPECT_EQ(QFile::exists(files[qsizetype(i)]), tasks[i]->cancelled());
    EXPECT_FALSE(queue().lock().isHeldByThisThread());
}

TEST_F(EncodeReal, LongFlacEncodingShowsItsProgressAndNoFaults)
{
    const QString source = pathOf(u"a.wav"_s);
    runTool(u"sox"_s, {u"-n"_s, u"-r"_s, u"44100"_s, u"-c"_s, u"2"_s, u"-b"_s, u"16"_s, source, u"synth"_s, u"240"_s,
                       u"whitenoise"_s});
    tab.flacSlider->setIntValue(8);
    tab.flacVerifyButton->setState(true);
    const auto task = encode(u"FLAC"_s, {source}).at(0);
    QSet<QString> statuses;
    ASSERT_TRUE(runUntil([&] {
        statuses += task->topTextField()->stringValue();
        return queue().taskCount() == 0;
    }));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_TRUE(std::any_of(statuses.begin(), statuses.end(), [](const QString& status) {
        return status.startsWith(u"Encoding to Flac: "_s) && status.contains(u"% ratio=0."_s);
    }));
    EXPECT_EQ(log_.count(u"Exception"_s), 0);
}

TEST_F(EncodeReal, ExistingOutputIsNotOverwrittenAndItsSourceStays)
{
    runTool(toolPath(u"shorten"_s), {wave(u"b.wav"_s), pathOf(u"b.shn"_s)});
    for (const auto& [target, source, extension] :
         {std::tuple{u"FLAC"_s, u"a.wav"_s, u"flac"_s}, std::tuple{u"WV"_s, u"a.wav"_s, u"wv"_s},
          std::tuple{u"SHN"_s, u"a.wav"_s, u"shn"_s}, std::tuple{u"FLAC"_s, u"b.shn"_s, u"flac"_s}}) {
        if (source == u"a.wav") wave(source);
        const QString output = file(path::deletingExtension(source) + u'.' + extension, "mine");
        tab.deleteOriginalsButton->setState(true);
        panels_.answerAlert(1);
        const auto task = encode(target, {pathOf(source)}).at(0);
        runQueue();
        EXPECT_TRUE(task->error()) << target.toStdString();
        EXPECT_EQ(fileBytes(output), "mine");
        EXPECT_TRUE(exists(source));
        queue().removeAllErrors(nullptr);
    }
}

TEST_F(EncodeReal, DeletesItsSourceAfterSuccess)
{
    for (const QString& target : {u"FLAC"_s, u"WV"_s, u"SHN"_s, u"TTA"_s, u"M4A"_s}) {
        tab.deleteOriginalsButton->setState(true);
        panels_.answerAlert(1);
        encode(target, {wave(u"a.wav"_s)});
        runQueue();
        EXPECT_FALSE(exists(u"a.wav"_s)) << target.toStdString();
    }
}

TEST_F(EncodeReal, OddNamesAreEncoded)
{
    const QStringList names{u"-a.wav"_s, u"it's \"50%\".wav"_s, u"a: b.wav"_s, u"Ночь 夜.wav"_s, u" blank .wav"_s};
    for (const QString& target : {u"FLAC"_s, u"WV"_s, u"SHN"_s, u"TTA"_s, u"M4A"_s, u"APE"_s}) {
        QStringList files;
        for (const QString& name : names)
            files += wave(name);
        encode(target, files);
        runQueue();
        for (const QString& name : names) {
            const QString output = pathOf(path::deletingExtension(name) + u'.' + target.toLower());
            EXPECT_TRUE(QFile::exists(output)) << output.toStdString();
        }
    }
    EXPECT_TRUE(queue().outputWindows().empty());
    EXPECT_EQ(log_.count(u"Exception"_s), 0);
}

TEST_F(EncodeReal, DepthsThatFailAreToldBeforehandAndNoOthers)
{
    const std::atomic<bool> stop = false;
    for (const QString& target : {u"FLAC"_s, u"WV"_s, u"SHN"_s, u"TTA"_s, u"M4A"_s, u"APE"_s}) {
        for (const uint32_t bits : {8U, 16U, 24U, 32U}) {
            tab.outputFormatMatrix->selectTitle(target);
            tab.addFiles({wave(u"a.wav"_s, 2000, bits)});
            const WorkPlan plan = tab.workPlan();
            const auto cautions = plan.inspect(plan, stop);
            const auto task = tasksOfPress().at(0);
            runQueue();
            EXPECT_EQ(!cautions.empty(), task->error()) << bits << " bits to " << target.toStdString();
            queue().removeAllErrors(nullptr);
            QFile::remove(plan.items.at(0).outputs.at(0));
        }
    }
}

TEST_F(EncodeReal, DeepAudioKeepsEveryBit)
{
    for (const QString& target : {u"FLAC"_s, u"WV"_s, u"SHN"_s, u"TTA"_s, u"M4A"_s}) {
        const QString source = wave(u"a.wav"_s, 20000, 24, 96000);
        const auto task = encode(target, {source}).at(0);
        runQueue();
        if (target == u"SHN"_s) { // the format holds no more than 16 bits: refused, never cut
            EXPECT_TRUE(task->error());
            continue;
        }
        EXPECT_EQ(decodedByFfmpeg(pathOf(u"a."_s + target.toLower()), 24), decodedByFfmpeg(source, 24))
            << target.toStdString();
    }
}

TEST_P(EncodeMatrix, WhatFailsIsToldBeforehand)
{
    tab.addFile(pathOf(u"a."_s + GetParam().source));
    const QString caution = tab.workPlan().items.at(0).caution;
    EXPECT_EQ(caution.isEmpty(), GetParam().end == End::Exact) << caution.toStdString();
}
