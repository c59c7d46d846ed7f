// The tab and its tasks with the real tools, on lists that other programs wrote too.
#include "checksum/ChecksumTab.h"
#include "engine/OutputWindowController.h"
#include "engine/ReportVerdict.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/threads/DetachedThreads.h"
#include "support/Programs.h"
#include "support/TabFixture.h"

#include <QRegularExpression>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class RealChecksum : public TabFixture<ChecksumTab>
{
protected:
    RealChecksum() : TabFixture(Constants::CHECKSUM) {}

    /// Music-like noise. @return the file's path
    QString makeWav(const QString& name) const
    {
        const QString wav = pathOf(name);
        QDir().mkpath(path::deletingLastComponent(wav));
        run(u"sox"_s, {u"-R"_s, u"-n"_s, u"-r"_s, u"44100"_s, u"-c"_s, u"2"_s, u"-b"_s, u"16"_s, wav, u"synth"_s,
                       u"0.5"_s, u"pinknoise"_s});
        EXPECT_TRUE(QFile::exists(wav));
        return wav;
    }
    QString makeFlac(const QString& name) const
    {
        const QString wav = makeWav(name + u".wav"_s), flac = pathOf(name);
        run(u"flac"_s, {u"-s"_s, u"-f"_s, u"-o"_s, flac, wav});
        QFile::remove(wav);
        return flac;
    }
    void press(ChecksumTab::Command command, const QStringList& files)
    {
        tab.commandOptions->selectCell(command, 0);
        tab.addFiles(files);
        tab.executeCommand(nullptr);
        runQueue();
        waitForDetachedThreads();
        runPosted();
    }
    /// Makes a list of that kind over the files. @return its text
    QString created(const QString& kind, const QStringList& files, const QString& name)
    {
        tab.createChecksumOptions->selectTitle(kind);
        press(ChecksumTab::CreateList, files);
        return textOf(name);
    }
    QString verified(const QString& list)
    {
        press(ChecksumTab::VerifyLists, {pathOf(list)});
        return lastReport();
    }
    /// The lines of a report that are bad news.
    static QStringList badLines(const QString& report)
    {
        QStringList lines = report.split(u'\n');
        lines.removeIf([](const QString& line) { return verdictOfLine(line) != LineVerdict::Bad; });
        return lines;
    }
    QString lastReport() const
    {
        const auto windows = controller.taskQueue()->outputWindows();
        EXPECT_FALSE(windows.empty());
        return windows.empty() ? QString() : windows.back()->textField()->string();
    }
    QString textOf(const QString& name) const
    {
        QFile list(pathOf(name));
        EXPECT_TRUE(list.open(QIODevice::ReadOnly)) << name.toStdString();
        return QString::fromUtf8(list.readAll());
    }
    /// What shntool itself prints over the WAVs of the folder, in the order of their names.
    QString hashesOfShntool() const { return shellOutput(u"shntool hash -m *.wav 2>/dev/null"_s); }
    /// What a command prints in the test's folder.
    QString shellOutput(const QString& command) const
    {
        return QString::fromUtf8(run(u"sh"_s, {u"-c"_s, u"cd \"$1\" && "_s + command, u"sh"_s, folder()}));
    }
    /// Flips one bit, by default in the middle of the file.
    static void flipBit(const QString& path, double part = 0.5, int bit = 4)
    {
        QFile flipped(path);
        ASSERT_TRUE(flipped.open(QIODevice::ReadWrite));
        const auto at = qint64(part * double(flipped.size()));
        flipped.seek(at);
        char byte = 0;
        flipped.getChar(&byte);
        flipped.seek(at);
        flipped.putChar(char(byte ^ 1 << bit));
    }
};

} // namespace

TEST_F(RealChecksum, Md5ListsVerifyHereAndElsewhereAndTellOneFlippedBit)
{
    const QString a = makeWav(u"d1t01 Straße.wav"_s), b = makeWav(u"d1t02 夜.wav"_s);
    created(u"MD5"_s, {a, b}, u"md5sum.md5"_s);
    int status = -1;
    run(u"sh"_s, {u"-c"_s, u"cd \"$1\" && md5sum -c md5sum.md5"_s, u"sh"_s, folder()}, &status);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(verified(u"md5sum.md5"_s), u"Verify MD5: md5sum.md5\nd1t01 Straße.wav : OK\nd1t02 夜.wav : OK\n\n"_s);
    flipBit(b);
    EXPECT_EQ(verified(u"md5sum.md5"_s), u"Verify MD5: md5sum.md5\nd1t01 Straße.wav : OK\nd1t02 夜.wav : FAILED\n\n"_s);
}

TEST_F(RealChecksum, Md5ListsOfMd5sumInBinaryFormVerify)
{
    makeWav(u"a.wav"_s);
    file(u"theirs.md5"_s, run(u"sh"_s, {u"-c"_s, u"cd \"$1\" && md5sum -b a.wav"_s, u"sh"_s, folder()}));
    EXPECT_EQ(verified(u"theirs.md5"_s), u"Verify MD5: theirs.md5\na.wav : OK\n\n"_s);
}

TEST_F(RealChecksum, FingerprintsAreTheLinesOfMetaflacAndTheirFilesAreDecoded)
{
    const QString a = makeFlac(u"a.flac"_s), b = makeFlac(u"b c.flac"_s);
    const QString list = created(u"FFP"_s, {a, b}, u"fingerprint.ffp.txt"_s);
    const QByteArray theirs =
        run(u"sh"_s, {u"-c"_s, u"cd \"$1\" && metaflac --with-filename --show-md5 *.flac"_s, u"sh"_s, folder()});
    EXPECT_EQ(list.section(u'\n', 2), QString::fromUtf8(theirs));
    const QString report = verified(u"fingerprint.ffp.txt"_s);
    EXPECT_TRUE(report.startsWith(u"Verify FFP: fingerprint.ffp.txt\na.flac : OK\nb c.flac : OK\n"
                                  "\nVerify Flac Files in fingerprint.ffp.txt\n"_s))
        << report.toStdString();
    EXPECT_TRUE(report.contains(u"a.flac: ok"_s)) << report.toStdString();
    EXPECT_TRUE(report.contains(u"b c.flac: ok"_s)) << report.toStdString();
}

TEST_F(RealChecksum, AFlacFileWithOneFlippedBitIsToldByItsDecoding)
{
    const QString a = makeFlac(u"a.flac"_s);
    created(u"FFP"_s, {a}, u"fingerprint.ffp.txt"_s);
    flipBit(a);
    const QString report = verified(u"fingerprint.ffp.txt"_s);
    EXPECT_TRUE(report.contains(u"a.flac : OK\n"_s)) << "what it carries is unchanged";
    EXPECT_TRUE(report.contains(u"ERROR"_s)) << report.toStdString();
    QFile::remove(a);
    EXPECT_TRUE(verified(u"fingerprint.ffp.txt"_s).contains(u" : a.flac\n"_s));
}

TEST_F(RealChecksum, St5ListsAreTheLinesOfShntool)
{
    const QString a = makeWav(u"a b.wav"_s), b = makeWav(u"c.wav"_s);
    const QString list = created(u"ST5"_s, {a, b}, u"checksum.st5"_s);
    EXPECT_EQ(list.count(u"  [shntool]  "_s), 2) << list.toStdString();
    EXPECT_EQ(list.section(u'\n', 2), hashesOfShntool());
    EXPECT_EQ(verified(u"checksum.st5"_s), u"Verify ST5: checksum.st5\na b.wav : OK\nc.wav : OK\n\n"_s);
    flipBit(b);
    EXPECT_EQ(verified(u"checksum.st5"_s),
              u"Verify ST5: checksum.st5\na b.wav : OK\nc.wav : did not match shntool md5 file\n\n"_s);
}

TEST_F(RealChecksum, AnSt5ListOverManyFilesHoldsEveryLineOfShntool)
{
    const QString first = makeWav(u"track 000.wav"_s);
    QStringList files{first};
    for (int number = 1; number < 150; ++number) {
        files += pathOf(u"track %1.wav"_s.arg(number, 3, 10, QChar(u'0')));
        ASSERT_TRUE(QFile::link(first, files.last()));
    }
    EXPECT_EQ(created(u"ST5"_s, files, u"checksum.st5"_s).section(u'\n', 2), hashesOfShntool());
}

TEST_F(RealChecksum, ListsOfOtherProgramsVerifyAsTheyComeFromOtherSystems)
{
    for (const QString& name : {u"d1t01 Straße.wav"_s, u"d1t02 夜の歌.wav"_s, u"d1t03 Привет.wav"_s})
        makeWav(name);
    const QString good = u"d1t01 Straße.wav : OK\nd1t02 夜の歌.wav : OK\nd1t03 Привет.wav : OK\n"_s;
    const auto foreign = [](const QString& list) {
        return QString(u"; made elsewhere\n\n"_s + list).replace(u'\n', u"\r\n"_s).toUtf8();
    };
    file(u"theirs.md5"_s, foreign(shellOutput(u"md5sum -b *.wav"_s)));
    EXPECT_EQ(verified(u"theirs.md5"_s), u"Verify MD5: theirs.md5\n"_s + good + u'\n');
    file(u"theirs.st5"_s, foreign(hashesOfShntool()));
    EXPECT_EQ(verified(u"theirs.st5"_s), u"Verify ST5: theirs.st5\n"_s + good + u'\n');
    shellOutput(u"flac -s *.wav"_s);
    file(u"theirs.ffp"_s, foreign(shellOutput(u"metaflac --with-filename --show-md5 *.flac"_s)));
    const QString report = verified(u"theirs.ffp"_s);
    EXPECT_TRUE(report.startsWith(u"Verify FFP: theirs.ffp\n"_s + QString(good).replace(u".wav"_s, u".flac"_s)))
        << report.toStdString();
    EXPECT_EQ(report.count(u": ok\n"_s), 3) << report.toStdString();
}

TEST_F(RealChecksum, OneFlippedBitOfTheAudioIsToldWhereverItLies)
{
    const QString wav = makeWav(u"a.wav"_s), flac = makeFlac(u"b.flac"_s);
    created(u"ST5"_s, {wav}, u"checksum.st5"_s);
    created(u"FFP"_s, {flac}, u"fingerprint.ffp.txt"_s);
    const LogCapture log;
    for (const double part : {0.2, 0.4, 0.6, 0.8, 0.999}) {
        const int bit = int(part * 10) % 8;
        flipBit(wav, part, bit);
        EXPECT_EQ(verified(u"checksum.st5"_s),
                  u"Verify ST5: checksum.st5\na.wav : did not match shntool md5 file\n\n"_s)
            << part;
        flipBit(wav, part, bit);
        flipBit(flac, part, bit);
        const QStringList bad = badLines(verified(u"fingerprint.ffp.txt"_s));
        ASSERT_EQ(bad.size(), 1) << part << lastReport().toStdString();
        EXPECT_TRUE(bad.first().contains(u"b.flac"_s)) << bad.first().toStdString();
        flipBit(flac, part, bit);
    }
    EXPECT_EQ(verified(u"checksum.st5"_s), u"Verify ST5: checksum.st5\na.wav : OK\n\n"_s);
}

TEST_F(RealChecksum, OneFlippedBitIsToldByTheToolOfEachFormat)
{
    const QString wav = makeWav(u"source.wav"_s), flac = makeFlac(u"a.flac"_s);
    const QString ape = pathOf(u"b.ape"_s), wavpack = pathOf(u"c.wv"_s), tta = pathOf(u"d.tta"_s);
    run(toolPath(u"mac"_s), {wav, ape, u"-c2000"_s});
    run(u"wavpack"_s, {u"-q"_s, wav, u"-o"_s, wavpack});
    run(toolPath(u"ttaenc"_s), {u"-e"_s, u"-o"_s, tta, wav});
    const QStringList files{flac, ape, wavpack, tta};
    press(ChecksumTab::TestFiles, files);
    EXPECT_EQ(inWords(verdictOf(lastReport())), u"4 OK"_s) << lastReport().toStdString();
    const LogCapture log;
    for (const double part : {0.2, 0.5, 0.9}) {
        for (const QString& file : files)
            flipBit(file, part, 3);
        press(ChecksumTab::TestFiles, files);
        const QString report = lastReport();
        EXPECT_EQ(inWords(verdictOf(report)), u"4 failed"_s) << part << '\n' << report.toStdString();
        for (const QString& file : files) {
            EXPECT_TRUE(report.contains(path::lastComponent(file))) << file.toStdString();
            flipBit(file, part, 3);
        }
        queue().removeAllErrors(nullptr);
    }
}

TEST_F(RealChecksum, AFileOfAnotherFolderIsMissingFromAnSt5List)
{
    const LogCapture log;
    const QString a = makeWav(u"1/a.wav"_s), b = makeWav(u"2/b.wav"_s);
    const QString list = created(u"ST5"_s, {a, b}, u"1/checksum.st5"_s);
    EXPECT_EQ(list.count(u"  [shntool]  "_s), 1) << list.toStdString();
    EXPECT_TRUE(list.contains(u"b.wav"_s));
}

TEST_F(RealChecksum, AMissingFileOfAnSt5ListIsTold)
{
    const QString a = makeWav(u"a.wav"_s);
    created(u"ST5"_s, {a}, u"checksum.st5"_s);
    QFile::remove(a);
    const QString report = verified(u"checksum.st5"_s);
    EXPECT_TRUE(report.startsWith(u"Verify ST5: checksum.st5\na.wav : "_s)) << report.toStdString();
    EXPECT_FALSE(report.contains(u": OK"_s));
}

TEST_F(RealChecksum, FlacAndWavpackFilesAreTestedAndDamageIsTold)
{
    const QString flac = makeFlac(u"a.flac"_s), wav = makeWav(u"b.wav"_s), wavpack = pathOf(u"b.wv"_s);
    run(u"wavpack"_s, {u"-q"_s, wav, u"-o"_s, wavpack});
    press(ChecksumTab::TestFiles, {flac, wavpack});
    EXPECT_TRUE(lastReport().contains(u"a.flac: ok"_s)) << lastReport().toStdString();
    const QRegularExpression verified(u"verified \\S*b\\.wv in "_s); // its folder too, if that is short
    EXPECT_TRUE(lastReport().contains(verified)) << lastReport().toStdString();
    EXPECT_TRUE(queue().panelArray().empty());
    const LogCapture log;
    flipBit(flac);
    flipBit(wavpack);
    press(ChecksumTab::TestFiles, {flac, wavpack});
    EXPECT_TRUE(lastReport().contains(u"ERROR"_s)) << lastReport().toStdString();
    EXPECT_EQ(queue().panelArray().size(), 2U) << "both tools ended with a failure";
}
