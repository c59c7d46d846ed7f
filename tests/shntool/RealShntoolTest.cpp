// The tabs with the real tools, on a small show.

#include "SampleShow.h"
#include "engine/OutputWindowController.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/files/Files.h"
#include "platform/threads/DetachedThreads.h"
#include "shntool/FixTab.h"
#include "shntool/FixTask.h"
#include "shntool/SHNtoolTab.h"
#include "support/FakeTools.h"
#include "support/TabFixture.h"

#include <QtEndian>

using namespace zolt;
using namespace zolt::test;

namespace {

using C = Constants;

template <class Tab> class RealShow : public TabFixture<Tab>
{
protected:
    using TabFixture<Tab>::TabFixture;

    QString in(const QString& name) const { return this->pathOf(name); }
    QString out() const
    {
        QDir(in(QString())).mkpath(u"out"_s);
        return in(u"out"_s);
    }
    /// Tracks of odd lengths, on two discs. @return their paths
    QStringList show(const QString& extension, int tracks = 4, int rate = 44100, int bits = 16) const
    {
        QStringList files;
        for (int i = 1; i <= tracks; ++i) {
            const QString name = u"live d%1t%2.wav"_s.arg(1 + (i - 1) / ((tracks + 1) / 2)).arg(i, 2, 10, QChar(u'0'));
            const QString wav = tone(in(name), 588 * 20 + 100 * i, rate, bits);
            files += encoded(wav, extension);
        }
        return files;
    }
    QString encoded(const QString& wav, const QString& extension) const
    {
        const QString made = path::deletingExtension(wav) + u'.' + extension;
        int status = 0;
        if (extension == u"flac"_s) test::run(u"flac"_s, {u"-s"_s, u"--delete-input-file"_s, wav}, &status);
        if (extension == u"wv"_s) test::run(u"wavpack"_s, {u"-q"_s, u"-d"_s, wav}, &status);
        if (extension == u"aiff"_s) test::run(u"sox"_s, {u"-D"_s, wav, made}, &status);
        if (extension == u"shn"_s) test::run(toolPath(u"shorten"_s), {wav, made}, &status);
        if (extension == u"tta"_s) test::run(toolPath(u"ttaenc"_s), {u"-e"_s, u"-o"_s, made, wav}, &status);
        if (extension == u"ape"_s) test::run(toolPath(u"mac"_s), {wav, made, u"-c2000"_s}, &status);
        EXPECT_EQ(status, 0);
        return made;
    }
    QByteArray audio(const QStringList& files) const
    {
        QByteArray samples;
        for (const QString& file : files) {
            samples += samplesOf(unpacked(file));
        }
        return samples;
    }
    /// The file itself if sox reads it, else one that it does.
    QString unpacked(const QString& file) const
    {
        const QString extension = path::extension(file), to = in(u"unpacked.wav"_s);
        int status = 0;
        QFile::remove(to);
        if (extension == u"wv"_s) test::run(u"wvunpack"_s, {u"-q"_s, file, u"-o"_s, to}, &status);
        if (extension == u"shn"_s) test::run(toolPath(u"shorten"_s), {u"-x"_s, file, to}, &status);
        if (extension == u"tta"_s) test::run(toolPath(u"ttaenc"_s), {u"-d"_s, u"-o"_s, to, file}, &status);
        if (extension == u"ape"_s) test::run(toolPath(u"mac"_s), {file, to, u"-d"_s}, &status);
        EXPECT_EQ(status, 0) << file.toStdString();
        return QFile::exists(to) ? to : file;
    }
    /// Until nothing is open, the list is empty, and no thread is left that knows the tab.
    void settle()
    {
        ASSERT_TRUE(runUntil([this] { return this->queue().taskCount() == 0 && this->tab.fileNames().isEmpty(); }));
        waitForDetachedThreads();
    }
    void pressed(const QStringList& files)
    {
        this->tab.addFiles(files);
        this->tab.executeCommand(nullptr);
        settle();
    }
    QString report() { return this->queue().outputWindows().back()->textField()->string(); }
    bool failed() { return !this->queue().panelArray().empty(); }
};

class RealShntool : public RealShow<SHNtoolTab>
{
protected:
    RealShntool() : RealShow(C::SHNTOOL) { tab.setDestination(out()); }

    void press(const QString& command, const QStringList& files)
    {
        tab.shntoolCommandMatrix->selectTitle(command);
        pressed(files);
    }
};

/// What a fix to WAV is to leave.
class RealFix : public RealShow<FixTab>
{
protected:
    RealFix() : RealShow(C::FIX_SBE) { tab.setDestination(out()); }

    void expectFixed(const QStringList& files, const QByteArray& before) const
    {
        QByteArray after;
        for (const QString& file : files) {
            const QByteArray samples = samplesOf(path::inFolderWithExtension(file, out(), u"wav"_s));
            EXPECT_EQ(samples.size() % (588 * 8), 0) << file.toStdString();
            after += samples;
        }
        EXPECT_TRUE(after.startsWith(before));
        EXPECT_LT(after.size() - before.size(), 588 * 8) << "but for the padding";
        EXPECT_EQ(after.mid(before.size()).count('\0'), after.size() - before.size());
    }
    void expectLists(const QStringList& lists) const
    {
        EXPECT_EQ(directoryListing(out()).filter(u".md5"_s).size(), lists.size());
        EXPECT_TRUE(directoryListing(in(QString())).filter(u".md5"_s).isEmpty()) << "none beside the sources";
        for (const QString& list : lists) {
            int status = -1;
            const QByteArray said = test::run(
                u"sh"_s,
                {u"-c"_s, u"cd \"$1\" && grep -v '^#' \"$2\" | grep . | md5sum -c --strict"_s, u"sh"_s, out(), list},
                &status);
            EXPECT_EQ(status, 0) << said.toStdString();
            EXPECT_TRUE(said.contains(": OK"));
        }
    }
};

struct RealTool
{
    const QString shntool = toolPath(u"shntool"_s);
};

/// A show of which a file goes within shntool's own run, before the tool opens it. The tab takes its tools' folder when
/// it is made, so the fakes stand before the show.
template <class Show> class Vanishing : RealTool, FakeTools, public Show
{
protected:
    /// Presses, and runs the one task. @return that task
    std::shared_ptr<ZOLTTask> runWithout(const QString& gone, const QStringList& files)
    {
        install(u"shntool"_s, {u"remove"_s, gone, u"become"_s, shntool, u"$@"_s});
        this->tab.addFiles(files);
        const auto task = this->tasksOfPress().front();
        this->settle();
        return task;
    }
    void expectFailureThatNames(const ZOLTTask& task, const QString& file, const QString& title)
    {
        EXPECT_TRUE(task.error());
        EXPECT_EQ(task.topTextField()->stringValue(), u"Error"_s);
        EXPECT_TRUE(this->report().contains(path::lastComponent(file))) << this->report().toStdString();
        EXPECT_EQ(this->queue().outputWindows().back()->window()->title(), title);
    }

private:
    const LogCapture log_;
};

using RealShntoolVanishing = Vanishing<RealShntool>;
using RealFixVanishing = Vanishing<RealFix>;

class RealKind : public RealShntool, public testing::WithParamInterface<const char*>
{
protected:
    QString kind() const { return QString::fromLatin1(GetParam()); }
};

class RealFixKind : public RealFix, public testing::WithParamInterface<const char*>
{
};

/// Names that mean something to a shell, a format or a parser.
const QStringList oddNames{u"-a.wav"_s, u"100% [x] (y).wav"_s, u"b ] (c.wav"_s, u"quo\"te's.wav"_s, u"ü.wav"_s};

/// The samples of a plain WAV file as the tools write it.
QByteArray plainSamples(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll().mid(44);
}

/// "mm:ss.ff" of so many frames of CD audio, to the nearest sector.
QString cdTime(int frames)
{
    const int sectors = (frames + 294) / 588, seconds = sectors / 75;
    return u"%1:%2.%3"_s.arg(seconds / 60, 2, 10, QChar(u'0'))
        .arg(seconds % 60, 2, 10, QChar(u'0'))
        .arg(sectors % 75, 2, 10, QChar(u'0'));
}

} // namespace

TEST_P(RealKind, LenTellsTheArithmeticOfTheFrames)
{
    tab.shnLenMatrix->selectTitle(C::LEN_BY_FILESET);
    const QStringList files = show(kind());
    tab.names = QStringList{u"One"_s, u"Two"_s, u"Three"_s, u"Four"_s};
    press(C::LEN, files);
    QString expected;
    int sum = 0;
    for (int i = 1; i <= 4; sum += 588 * 20 + 100 * i, ++i)
        expected += u"0%1. %2 %3\n"_s.arg(i).arg(tab.names->at(i - 1), -6).arg(cdTime(588 * 20 + 100 * i));
    expected += u"\nTotal: "_s + cdTime(sum) + u'\n';
    EXPECT_EQ(report().first(expected.size()), expected);
}

TEST_P(RealKind, JoinKeepsEverySample)
{
    const QStringList files = show(kind());
    const QByteArray before = audio(files);
    press(C::JOIN, files);
    EXPECT_FALSE(failed());
    EXPECT_EQ(samplesOf(out() + u"/joined.flac"_s), before);
    EXPECT_TRUE(queue().outputWindows().empty());
}

TEST_P(RealKind, SplitPiecesJoinToTheSource)
{
    const QStringList files = show(kind(), 1);
    panels_.answerOpenPanel(QStringList{file(u"points.txt"_s, "0:00.10\n0:00.20\n")});
    tab.outputFormatMatrix->selectTitle(C::WAV);
    press(C::SPLIT, files);
    QByteArray joined;
    for (int piece = 1; piece <= 3; ++piece)
        joined += samplesOf(out() + u"/split-track0%1.wav"_s.arg(piece));
    EXPECT_EQ(joined, audio(files));
}

TEST_P(RealKind, InfoAndLenByDiscReport)
{
    const QStringList files = show(kind());
    press(C::INFO, files);
    EXPECT_EQ(report().count(u"CD quality:                 yes"_s), 4) << report().toStdString();
    tab.shnLenMatrix->selectTitle(C::LEN_BY_DISC);
    press(C::LEN, files);
    EXPECT_TRUE(report().startsWith(u"Disc 1\n\n01. "_s)) << report().toStdString();
    EXPECT_TRUE(report().contains(u"Disc 2\n\n01. "_s));
}

TEST_P(RealKind, PadFillsTheLastSector)
{
    const QStringList files = show(kind(), 1);
    tab.outputFormatMatrix->selectTitle(C::WAV);
    press(C::PAD, files);
    const QByteArray before = audio(files), after = samplesOf(out() + u"/live d1t01-padded.wav"_s);
    EXPECT_TRUE(after.startsWith(before));
    EXPECT_EQ(after.size(), 588 * 21 * 8);
    EXPECT_EQ(after.mid(before.size()).count('\0'), after.size() - before.size());
}

INSTANTIATE_TEST_SUITE_P(Formats, RealKind, testing::Values("wav", "flac", "aiff", "wv", "shn", "tta", "ape"));

TEST_F(RealShntool, DeepAudioIsListedAndJoinedBitForBit)
{
    for (const QString& kind : {u"flac"_s, u"wv"_s}) {
        const QStringList files = show(kind, 2, 96000, 24);
        const QByteArray before = audio(files);
        press(C::LEN, files);
        EXPECT_TRUE(report().contains(u"(2 files)"_s));
        press(C::JOIN, files);
        EXPECT_EQ(samplesOf(out() + u"/joined.flac"_s), before);
        QFile::remove(out() + u"/joined.flac"_s);
    }
}

TEST_F(RealShntool, FiveHundredFilesAreListedAndJoinedWholeWhateverTheirNames)
{
    const QString one = tone(in(u"one.wav"_s), 588);
    QStringList files;
    for (int i = 0; i < 500; ++i) {
        files += in(u"Ночь [%1] 50% \"x\".wav"_s.arg(i, 3, 10, QChar(u'0')));
        ASSERT_TRUE(QFile::link(one, files.last()));
    }
    tab.shnLenMatrix->selectTitle(C::LEN_BY_FILESET);
    press(C::LEN, files);
    const QStringList lines = report().split(u'\n');
    ASSERT_GT(lines.size(), 500);
    for (int i = 0; i < 500; ++i)
        EXPECT_EQ(lines[i], u"%1. %2  00:00.01"_s.arg(i + 1, 2, 10, QChar(u'0')).arg(path::lastComponent(files[i])));
    EXPECT_TRUE(report().contains(u"Total: 00:06.50\n"_s));
    tab.outputFormatMatrix->selectTitle(C::WAV);
    press(C::JOIN, files);
    EXPECT_FALSE(failed());
    EXPECT_EQ(plainSamples(out() + u"/joined.wav"_s), plainSamples(one).repeated(500));
}

TEST_F(RealShntool, LengthsAreThoseOfTheFramesInEveryUnit)
{
    const auto lengthOf = [this](int frames, int rate, qint64 longer = 0) {
        const QString file = tone(in(u"x.wav"_s), frames, rate);
        if (longer != 0) { // silence, without writing it
            QFile wav(file);
            EXPECT_TRUE(wav.open(QIODevice::ReadWrite));
            const auto put = [&wav](qint64 at, qint64 size) {
                const auto bytes = qToLittleEndian(quint32(size));
                wav.seek(at);
                wav.write(reinterpret_cast<const char*>(&bytes), 4);
            };
            put(4, longer * 4 + 36);
            put(40, longer * 4);
            wav.resize(longer * 4 + 44);
        }
        press(C::LEN, {file});
        return report().split(u'\n').at(1).simplified().section(u' ', 0, 0);
    };
    EXPECT_EQ(lengthOf(588 * 74 + 293, 44100), u"0:00.74"_s);
    EXPECT_EQ(lengthOf(588 * 74 + 294, 44100), u"0:01.00"_s) << "to the nearest sector";
    EXPECT_EQ(lengthOf(588, 44100, 588 * (75 * 60 * 123 + 75 * 45 + 67)), u"123:45.67"_s);
    EXPECT_EQ(lengthOf(48000 + 480, 48000), u"0:01.010"_s) << "milliseconds without sectors";
}

TEST_F(RealShntool, EveryCommandTakesAnyName)
{
    tab.outputFormatMatrix->selectTitle(C::WAV);
    QStringList files;
    for (const QString& name : oddNames)
        files += tone(in(name), 5881 + 77 * int(files.size()));
    const QByteArray before = audio(files);
    press(C::JOIN, files);
    EXPECT_EQ(samplesOf(out() + u"/joined.wav"_s), before);
    press(C::PAD, files);
    for (const QString& name : oddNames)
        EXPECT_TRUE(zolt::exists(out() + u'/' + path::deletingExtension(name) + u"-padded.wav"_s))
            << name.toStdString();
    tab.shnLenMatrix->selectTitle(C::NORMAL_LEN_OUTPUT);
    for (const QString& command : {C::LEN, C::INFO}) {
        press(command, files);
        for (const QString& name : oddNames)
            EXPECT_TRUE(report().contains(name)) << report().toStdString();
    }
    EXPECT_FALSE(failed());
    press(C::CMP, files.first(2));
    EXPECT_TRUE(report().contains(u"differ"_s)) << report().toStdString();
    for (const QString& name : oddNames) {
        panels_.answerOpenPanel(QStringList{file(u"points.txt"_s, "0:00.05\n")});
        press(C::SPLIT, {in(name)});
        EXPECT_EQ(samplesOf(out() + u"/split-track01.wav"_s) + samplesOf(out() + u"/split-track02.wav"_s),
                  samplesOf(in(name)));
        QFile::remove(out() + u"/split-track01.wav"_s);
        QFile::remove(out() + u"/split-track02.wav"_s);
    }
}

TEST_F(RealShntool, FileThatVanishesFailsItsRowWithItsName)
{
    tab.outputFormatMatrix->selectTitle(C::WAV);
    for (const QString& command : {C::LEN, C::JOIN, C::PAD}) {
        const QStringList files{tone(in(u"a.wav"_s), 5881), tone(in(u"b.wav"_s), 5881)};
        queue().setHeld(true);
        tab.addFiles(files);
        tab.shntoolCommandMatrix->selectTitle(command);
        tab.executeCommand(nullptr);
        ASSERT_TRUE(QFile::remove(files[1])); // while its task waits
        queue().setHeld(false);
        runQueue();
        EXPECT_TRUE(failed()) << command.toStdString();
        EXPECT_TRUE(report().contains(u"b.wav"_s)) << report().toStdString();
        EXPECT_TRUE(zolt::exists(files[0]));
        queue().removeAllErrors(nullptr);
    }
}

TEST_F(RealShntoolVanishing, FileFailsItsRowAndCostsNoOther)
{
    tab.outputFormatMatrix->selectTitle(C::WAV);
    tab.shnLenMatrix->selectTitle(C::LEN_BY_FILESET);
    const QStringList files{in(u"a.wav"_s), in(u"b.wav"_s), in(u"c.wav"_s)};
    const auto expect = [&](const QString& command, const QString& gone, const QString& title) {
        SCOPED_TRACE(command.toStdString());
        for (const QString& each : files)
            tone(each, 588 * 20);
        tab.shntoolCommandMatrix->selectTitle(command);
        expectFailureThatNames(*runWithout(gone, files), gone, title);
        EXPECT_EQ(QDir(folder()).entryList({u"?.wav"_s}).size(), 2);
        EXPECT_EQ(directoryListing(out()), QStringList());
        queue().removeAllErrors(nullptr);
    };
    expect(C::LEN, files[1], u"Running shntool LEN"_s);
    expect(C::JOIN, files[1], u"Output"_s);
    panels_.answerOpenPanel(QStringList{file(u"points.txt"_s, "0:00.10\n")});
    expect(C::SPLIT, files[0], u"a.wav"_s);
}

TEST_F(RealShntool, CancelInAnyStageKeepsTheSources)
{
    tab.outputFormatMatrix->selectTitle(C::WAV);
    const QStringList files{tone(in(u"a.wav"_s), 44100 * 20), tone(in(u"b.wav"_s), 44100 * 20)};
    const QByteArray before = audio(files);
    for (const QString& command : {C::LEN, C::INFO, C::CMP, C::JOIN, C::PAD, C::TRIM, C::STRIP}) {
        for (const bool runs : {false, true}) {
            queue().setHeld(true);
            tab.addFiles(files);
            tab.shntoolCommandMatrix->selectTitle(command);
            tab.executeCommand(nullptr);
            const auto tasks = queue().taskArray();
            if (runs) queue().setHeld(false);
            for (const auto& task : tasks)
                task->cancelTask(nullptr);
            runQueue();
            EXPECT_EQ(audio(files), before) << command.toStdString();
            QDir(out()).removeRecursively();
            out();
        }
    }
}

TEST_F(RealShntool, CueTellsItsFileAndDeclinesOtherAudio)
{
    panels_.answerSavePanel(in(u"x.cue"_s));
    const QStringList files = show(u"wav"_s, 2);
    press(C::CUE, files);
    QFile sheet(in(u"x.cue"_s));
    ASSERT_TRUE(sheet.open(QIODevice::ReadOnly));
    const QByteArray text = sheet.readAll();
    EXPECT_TRUE(text.startsWith("FILE \"joined.wav\" WAVE\n  TRACK 01 AUDIO\n"));
    EXPECT_EQ(text, test::run(toolPath(u"shntool"_s), QStringList{u"cue"_s, u"-c"_s} + files) + '\n');
    EXPECT_FALSE(failed());
    EXPECT_TRUE(queue().outputWindows().empty());
    panels_.answerSavePanel(in(u"y.cue"_s));
    press(C::CUE, {tone(in(u"deep.wav"_s), 588, 48000)});
    EXPECT_TRUE(failed());
}

TEST_F(RealShntool, CompareTellsWhetherAudioIsTheSame)
{
    const QString one = tone(in(u"a.wav"_s), 5880);
    QFile::copy(one, in(u"b.wav"_s));
    press(C::CMP, {one, in(u"b.wav"_s)});
    EXPECT_TRUE(report().contains(u"identical"_s)) << report().toStdString();
}

TEST_F(RealShntool, StripOfAPlainFileFailsWithItsReason)
{
    press(C::STRIP, {tone(in(u"a.wav"_s), 5880)});
    EXPECT_TRUE(failed());
    EXPECT_TRUE(report().contains(u"canonical header"_s)) << report().toStdString();
}

class RealSplit : public RealShntool
{
protected:
    void split(const QByteArray& sheet, const QString& file)
    {
        const QString points = this->file(u"show.cue"_s, sheet);
        panels_.answerOpenPanel(QStringList{points});
        tab.outputFormatMatrix->selectTitle(C::WAV);
        press(C::SPLIT, {file});
    }
    QStringList pieces() const
    {
        QStringList names = directoryListing(out());
        names.sort();
        return names;
    }
    QByteArray joined() const
    {
        QStringList paths;
        for (const QString& name : pieces())
            paths += out() + u'/' + name;
        return audio(paths);
    }

    const QByteArray sheet_ = "TITLE \"Show\"\nFILE \"a.wav\" WAVE\n"
                              "  TRACK 01 AUDIO\n    TITLE \"Intro\"\n    INDEX 01 00:00:00\n"
                              "  TRACK 02 AUDIO\n    TITLE \"Say \"so\"\"\n    INDEX 01 00:01:10\n"
                              "  TRACK 03 AUDIO\n    TITLE \"a/b\"\n    INDEX 01 00:02:00\n"
                              "  TRACK 04 AUDIO\n    INDEX 01 00:03:00\n";
    const QStringList names_{u"01 Intro.wav"_s, u"02 Say \"so\".wav"_s, u"split-track03.wav"_s, u"split-track04.wav"_s};
};

TEST_F(RealSplit, PiecesBearTheirTitlesAndHoldEverySample)
{
    const QString file = tone(in(u"a.wav"_s), 44100 * 4 + 77);
    split(sheet_, file);
    EXPECT_EQ(pieces(), names_);
    EXPECT_EQ(joined(), samplesOf(file));
    EXPECT_FALSE(failed());
}

TEST_F(RealSplit, SheetsInOtherEncodingsAndLineEndsCutTheSame)
{
    const QString file = tone(in(u"a.wav"_s), 44100 * 4);
    QByteArray dos = sheet_, wide = QByteArray::fromHex("fffe"), wideBig = QByteArray::fromHex("feff");
    dos.replace("\n", "\r\n");
    for (const char byte : sheet_) {
        wide += QByteArray{1, byte} + '\0';
        wideBig += QByteArray{1, '\0'} + byte;
    }
    for (const QByteArray& sheet : {dos, QByteArray("\xef\xbb\xbf") + sheet_, wide, wideBig}) {
        split(sheet, file);
        EXPECT_EQ(pieces(), names_);
        EXPECT_EQ(joined(), samplesOf(file));
        QDir(out()).removeRecursively();
        out();
    }
}

TEST_F(RealSplit, PregapBeforeTheFirstTrackIsAPieceOfItsOwn)
{
    const QString file = tone(in(u"a.wav"_s), 44100 * 3);
    split("FILE \"a.wav\" WAVE\n  TRACK 01 AUDIO\n    INDEX 00 00:00:00\n    INDEX 01 00:01:00\n"
          "  TRACK 02 AUDIO\n    INDEX 01 00:02:00\n",
          file);
    EXPECT_EQ(joined(), samplesOf(file));
}

TEST_F(RealSplit, PlainTimesMayComeInUtf16)
{
    const QString file = tone(in(u"a.wav"_s), 44100 * 3);
    QByteArray times = QByteArray::fromHex("fffe");
    for (const char byte : QByteArray("0:01\r\n0:02.500\r\n"))
        times += QByteArray{1, byte} + '\0';
    split(times, file);
    EXPECT_EQ(pieces().size(), 3);
    EXPECT_EQ(samplesOf(out() + u"/split-track01.wav"_s).size(), 44100 * 8);
    EXPECT_EQ(joined(), samplesOf(file));
}

TEST_F(RealSplit, PlainTimesNameNothing)
{
    const QString file = tone(in(u"a.wav"_s), 44100 * 3);
    split("0:01\n0:02.500\n", file);
    EXPECT_EQ(pieces(), QStringList({u"split-track01.wav"_s, u"split-track02.wav"_s, u"split-track03.wav"_s}));
    EXPECT_EQ(joined(), samplesOf(file));
}

TEST_F(RealSplit, NinetyNineTracks)
{
    const QString file = tone(in(u"a.wav"_s), 588 * 99);
    QByteArray sheet = "FILE \"a.wav\" WAVE\n";
    for (int i = 0; i < 99; ++i)
        sheet += QStringLiteral("  TRACK %1 AUDIO\n    TITLE \"t%1\"\n    INDEX 01 00:0%2:%3\n")
                     .arg(i + 1, 2, 10, QChar(u'0'))
                     .arg(i / 75)
                     .arg(i % 75, 2, 10, QChar(u'0'))
                     .toUtf8();
    split(sheet, file);
    EXPECT_EQ(pieces().size(), 99);
    EXPECT_EQ(pieces().first(), u"01 t01.wav"_s);
    EXPECT_EQ(pieces().last(), u"99 t99.wav"_s);
    EXPECT_EQ(joined(), samplesOf(file));
}

TEST_P(RealFixKind, JoinedAudioStaysAndEveryFileButTheLastEndsOnABoundary)
{
    const QStringList files = show(QString::fromLatin1(GetParam()));
    const QByteArray before = audio(files);
    tab.outputFormatMatrix->selectTitle(C::WAV);
    tab.shnMd5Option->selectTitle(FixTask::MD5ByDisc);
    pressed(files);
    EXPECT_FALSE(failed()) << report().toStdString();
    expectFixed(files, before);
    expectLists({u"Disc1.md5"_s, u"Disc2.md5"_s});
}

INSTANTIATE_TEST_SUITE_P(Formats, RealFixKind, testing::Values("wav", "flac", "aiff", "wv", "shn", "tta"));

TEST_F(RealFix, DeclinesWhatIsNoCdAudioAndKeepsTheOriginals)
{
    panels_.answerAlert(1);
    tab.deleteOriginalsButton->setState(true);
    const QStringList files = show(u"wav"_s, 2, 48000);
    pressed(files);
    EXPECT_TRUE(failed());
    EXPECT_TRUE(report().contains(u"CD-quality"_s)) << report().toStdString();
    for (const QString& each : files)
        EXPECT_TRUE(zolt::exists(each));
}

TEST_F(RealFix, TakesAnyNameAndKeepsTheOrderOfTheList)
{
    QStringList files;
    for (const QString& name : oddNames)
        files += tone(in(name), 588 * 10 + 77 * int(files.size()));
    const QByteArray before = audio(files);
    tab.outputFormatMatrix->selectTitle(C::WAV);
    pressed(files);
    EXPECT_FALSE(failed()) << report().toStdString();
    expectFixed(files, before);
}

TEST_F(RealFix, ShowOfTwoDiscsIsRepairedAndOneThatIsWholeIsDeclined)
{
    const QStringList files = show(u"wav"_s, 23);
    const QByteArray before = audio(files);
    tab.outputFormatMatrix->selectTitle(C::WAV);
    tab.shnMd5Option->selectTitle(FixTask::MD5ByDisc);
    pressed(files);
    expectFixed(files, before);
    expectLists({u"Disc1.md5"_s, u"Disc2.md5"_s});
    QStringList repaired;
    for (const QString& file : files)
        repaired += path::inFolderWithExtension(file, out(), u"wav"_s);
    tab.setDestination(in(u"again"_s));
    QDir().mkpath(in(u"again"_s));
    pressed(repaired);
    EXPECT_TRUE(failed());
    EXPECT_TRUE(report().contains(u"everything seems fine, no need for fixing"_s)) << report().toStdString();
}

TEST_F(RealFix, EndingsInCapitalsAreNoPartOfTheOutputsNames)
{
    const QStringList files{in(u"A.WAV"_s), in(u"b.wav"_s)};
    ASSERT_TRUE(QFile::rename(tone(in(u"a.wav"_s), 5881), files[0]));
    tone(files[1], 5882);
    tab.outputFormatMatrix->selectTitle(C::FLAC);
    tab.shnMd5Option->selectTitle(FixTask::oneMD5);
    pressed(files);
    EXPECT_FALSE(failed()) << report().toStdString();
    expectLists({u"md5sum.md5"_s});
}

TEST_F(RealFix, FileThatVanishesKeepsTheOtherOriginals)
{
    panels_.answerAlert(1);
    tab.deleteOriginalsButton->setState(true);
    const QStringList files = show(u"wav"_s, 3);
    queue().setHeld(true);
    tab.addFiles(files);
    tab.executeCommand(nullptr);
    ASSERT_TRUE(QFile::remove(files[1]));
    queue().setHeld(false);
    settle();
    EXPECT_TRUE(failed());
    EXPECT_TRUE(report().contains(path::lastComponent(files[1]))) << report().toStdString();
    EXPECT_TRUE(zolt::exists(files[0]));
    EXPECT_TRUE(zolt::exists(files[2]));
}

TEST_F(RealFixVanishing, FileFailsTheRowAndKeepsTheOtherOriginals)
{
    panels_.answerAlert(1);
    tab.deleteOriginalsButton->setState(true);
    tab.outputFormatMatrix->selectTitle(C::WAV);
    tab.shnMd5Option->selectTitle(FixTask::oneMD5);
    const QStringList files = show(u"wav"_s, 3);
    expectFailureThatNames(*runWithout(files[1], files), files[1], u"Fixing"_s);
    EXPECT_TRUE(zolt::exists(files[0]));
    EXPECT_TRUE(zolt::exists(files[2]));
    QFile list(out() + u"/md5sum.md5"_s);
    ASSERT_TRUE(list.open(QIODevice::ReadOnly)) << "written all the same";
    EXPECT_TRUE(list.readAll().contains("d41d8cd98f00b204e9800998ecf8427e *" + path::lastComponent(files[1]).toUtf8()));
}

TEST_F(RealFix, OriginalsGoOnceTheyAreFixedAndStayIfItIsCancelled)
{
    panels_.answerAlert(1);
    panels_.answerAlert(1);
    UserDefaults::standard().set(u"trashOrDelete"_s, 0);
    tab.deleteOriginalsButton->setState(true);
    tab.outputFormatMatrix->selectTitle(C::WAV);
    const QStringList files = show(u"wav"_s, 2);
    queue().setHeld(true);
    tab.addFiles(files);
    tab.executeCommand(nullptr);
    queued<FixTask>().front()->cancelTask(nullptr); // while it waits
    EXPECT_EQ(tab.fileNames().copy(), files);
    EXPECT_TRUE(zolt::exists(files[0]));
    queue().setHeld(false);
    tab.executeCommand(nullptr);
    settle();
    for (const QString& file : files) {
        EXPECT_FALSE(zolt::exists(file));
        EXPECT_TRUE(zolt::exists(out() + u'/' + path::lastComponent(file)));
    }
}
