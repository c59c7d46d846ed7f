// The tabs with the real tools, on a small show.

#include "SampleShow.h"
#include "engine/OutputWindowController.h"
#include "platform/files/Files.h"
#include "shntool/FixTab.h"
#include "shntool/FixTask.h"
#include "shntool/SHNtoolTab.h"
#include "support/TabFixture.h"

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
            const QString wav = tone(in(u"live d%1t0%2.wav"_s.arg(1 + i / 3).arg(i)), 588 * 20 + 100 * i, rate, bits);
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
        EXPECT_EQ(status, 0);
        return made;
    }
    QByteArray audio(const QStringList& files) const
    {
        QByteArray samples;
        for (const QString& file : files) {
            int status = 0;
            const bool unpacks = file.endsWith(u".wv"_s);
            if (unpacks) test::run(u"wvunpack"_s, {u"-q"_s, u"-y"_s, file, u"-o"_s, in(u"unpacked.wav"_s)}, &status);
            EXPECT_EQ(status, 0);
            samples += samplesOf(unpacks ? in(u"unpacked.wav"_s) : file);
        }
        return samples;
    }
    void pressed(const QStringList& files)
    {
        this->tab.addFiles(files);
        this->tab.executeCommand(nullptr);
        ASSERT_TRUE(runUntil([this] { return this->queue().taskCount() == 0 && this->tab.fileNames().isEmpty(); }));
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

class RealFix : public RealShow<FixTab>
{
protected:
    RealFix() : RealShow(C::FIX_SBE) { tab.setDestination(out()); }
};

class RealKind : public RealShntool, public testing::WithParamInterface<const char*>
{
protected:
    QString kind() const { return QString::fromLatin1(GetParam()); }
};

class RealFixKind : public RealFix, public testing::WithParamInterface<const char*>
{
};

/// "mm:ss.ff" of so many frames of CD audio.
QString cdTime(int frames)
{
    const int sectors = frames / 588, seconds = sectors / 75;
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
    for (int i = 1; i <= 4; ++i)
        EXPECT_TRUE(report().contains(cdTime(588 * 20 + 100 * i))) << report().toStdString();
    EXPECT_TRUE(report().startsWith(u"01. One   "_s)) << report().toStdString();
}

TEST_P(RealKind, JoinAndTrimKeepEverySample)
{
    const QStringList files = show(kind());
    const QByteArray before = audio(files);
    press(C::JOIN, files);
    EXPECT_FALSE(failed());
    EXPECT_EQ(samplesOf(out() + u"/joined.flac"_s), before);
    EXPECT_TRUE(queue().outputWindows().empty());
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

INSTANTIATE_TEST_SUITE_P(Formats, RealKind, testing::Values("wav", "flac", "aiff", "wv"));

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

TEST_F(RealShntool, CueTellsItsFileAndDeclinesOtherAudio)
{
    panels_.answerSavePanel(in(u"x.cue"_s));
    press(C::CUE, show(u"wav"_s, 2));
    QFile sheet(in(u"x.cue"_s));
    ASSERT_TRUE(sheet.open(QIODevice::ReadOnly));
    EXPECT_TRUE(sheet.readAll().startsWith("FILE \"joined.wav\" WAVE\n  TRACK 01 AUDIO\n"));
    EXPECT_FALSE(failed());
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
    QByteArray after;
    for (int i = 1; i <= 4; ++i) {
        const QByteArray samples = samplesOf(out() + u"/live d%1t0%2.wav"_s.arg(1 + i / 3).arg(i));
        EXPECT_EQ(samples.size() % (588 * 8), 0) << i;
        after += samples;
    }
    EXPECT_TRUE(after.startsWith(before));
    EXPECT_EQ(after.mid(before.size()).count('\0'), after.size() - before.size()) << "but for the padding";
    for (const QString& list : {u"Disc1.md5"_s, u"Disc2.md5"_s}) {
        int status = -1;
        const QByteArray said =
            test::run(u"sh"_s, {u"-c"_s, u"cd \"$1\" && md5sum -c --strict \"$2\""_s, u"sh"_s, out(), list}, &status);
        EXPECT_TRUE(said.contains(": OK")) << said.toStdString();
        EXPECT_FALSE(said.contains("FAILED")) << said.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, RealFixKind, testing::Values("wav", "flac", "aiff", "wv"));

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
    const QStringList names{u"-a.wav"_s, u"100% [x] (y).wav"_s, u"b ] (c.wav"_s, u"quo\"te.wav"_s, u"ü.wav"_s};
    QStringList files;
    int frames = 588 * 10;
    for (const QString& name : names)
        files += tone(in(name), frames += 77);
    const QByteArray before = audio(files);
    tab.outputFormatMatrix->selectTitle(C::WAV);
    pressed(files);
    EXPECT_FALSE(failed()) << report().toStdString();
    QStringList outputs;
    for (const QString& name : names)
        outputs += out() + u'/' + name;
    EXPECT_TRUE(audio(outputs).startsWith(before));
}
