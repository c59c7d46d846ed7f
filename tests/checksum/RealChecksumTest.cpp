// The tab and its tasks with the real tools, on lists that other programs wrote too.
#include "checksum/ChecksumTab.h"
#include "engine/OutputWindowController.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/threads/DetachedThreads.h"
#include "support/Programs.h"
#include "support/TabFixture.h"

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
    /// Flips one bit in the middle of the file.
    static void flipBit(const QString& path)
    {
        QFile flipped(path);
        ASSERT_TRUE(flipped.open(QIODevice::ReadWrite));
        flipped.seek(flipped.size() / 2);
        char byte = 0;
        flipped.getChar(&byte);
        flipped.seek(flipped.size() / 2);
        flipped.putChar(char(byte ^ 0x10));
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
    const QString theirs = QString::fromUtf8(
        run(u"sh"_s, {u"-c"_s, u"cd \"$1\" && shntool hash -m *.wav 2>/dev/null"_s, u"sh"_s, folder()}));
    for (const QString& line : list.section(u'\n', 2).split(u'\n', Qt::SkipEmptyParts))
        EXPECT_TRUE(theirs.contains(line)) << line.toStdString();
    EXPECT_EQ(verified(u"checksum.st5"_s), u"Verify ST5: checksum.st5\na b.wav : OK\nc.wav : OK\n\n"_s);
    flipBit(b);
    EXPECT_EQ(verified(u"checksum.st5"_s),
              u"Verify ST5: checksum.st5\na b.wav : OK\nc.wav : did not match shntool md5 file\n\n"_s);
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
    EXPECT_TRUE(lastReport().contains(u"verified "_s + wavpack)) << lastReport().toStdString();
    EXPECT_TRUE(queue().panelArray().empty());
    const LogCapture log;
    flipBit(flac);
    flipBit(wavpack);
    press(ChecksumTab::TestFiles, {flac, wavpack});
    EXPECT_TRUE(lastReport().contains(u"ERROR"_s)) << lastReport().toStdString();
    EXPECT_EQ(queue().panelArray().size(), 2U) << "both tools ended with a failure";
}
