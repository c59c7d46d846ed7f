#include "lossy/EncodeMP3Task.h"
#include "AudioSamples.h"
#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "support/EveryCut.h"
#include "support/FileSizeLimit.h"
#include "support/Programs.h"
#include "support/TaskRun.h"
#include "tags/TagLibTagsHelper.h"

#include <QProcess>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class MP3 : public TaskRun
{
protected:
    std::shared_ptr<EncodeMP3Task> make(const QString& source, const QString& type = u"CBR"_s, int32_t level = 192)
    {
        return EncodeMP3Task::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(&queue_, source, type, folder(),
                                                                                 level);
    }
    /// What a task on the source would hand to shntool.
    QStringList argumentsFor(const QString& source, const QString& type = u"CBR"_s, int32_t level = 192)
    {
        const auto task = make(source, type, level);
        task->setResults(nullptr); // it never runs
        return task->arguments(source);
    }
    /// A real MP3 file, which fakes copy to where a tool would write.
    QString encoded() const
    {
        const QString wav = writeFile(elsewhere_.filePath(u"e.wav"_s), waveFile(makeSamples(44100, 2, 16, 20000)));
        const QString made = elsewhere_.filePath(u"e.mp3"_s);
        runTool(u"lame"_s, {u"--quiet"_s, wav, made});
        return made;
    }
    /// A shntool that names the output after its input: folder, base name and "mp3".
    void installNamingShntool()
    {
        tools_.install(u"shntool"_s);
        QFile script(tools_.directory() + u"/shntool"_s);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\neval in=\\${$#}\ncp '" + encoded().toUtf8() + "' \"${in%.wav}.mp3\"\n");
    }
    QString lossless(const QString& name) const
    {
        const QString wav = writeFile(elsewhere_.filePath(u"l.wav"_s), waveFile(makeSamples(44100, 2, 16, 20000)));
        runTool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, wav, u"-c:a"_s, u"alac"_s, u"-metadata"_s,
                              u"title=Späti"_s, path(name)});
        return path(name);
    }
    QString flac(const QString& name) const
    {
        const QString wav = writeFile(elsewhere_.filePath(u"f.wav"_s), waveFile(makeSamples(44100, 2, 16, 20000)));
        runTool(u"flac"_s, {u"-s"_s, u"-f"_s, u"-T"_s, u"TITLE=Späti"_s, u"-o"_s, path(name), wav});
        return path(name);
    }
    static QString titleOf(const QString& mp3)
    {
        return textOrEmpty(TagLibTagsHelper().tagsForMP3File(mp3)->titleText());
    }
    const LogCapture log_;
};

} // namespace

TEST_F(MP3, ShntoolIsToldHowToCallLame)
{
    const QString source = file(u"a.wav"_s);
    EXPECT_EQ(argumentsFor(source), QStringList({u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-o"_s,
                                                 u"cust ext=mp3 lame -b 192 - %f"_s, u"-d"_s, folder(), source}));
    EXPECT_EQ(argumentsFor(source, u"VBR"_s, 3).at(6), u"cust ext=mp3 lame -V 3 - %f"_s);
    EXPECT_EQ(argumentsFor(source, u"ABR"_s, 3).at(6), u"cust ext=mp3 lame -V 3 - %f"_s);
}

TEST_F(MP3, FlacInAnotherSpellingHasItsOutputNamed)
{
    const auto placeOf = [this](const QString& name) { return argumentsFor(path(name)).mid(7); };
    EXPECT_EQ(placeOf(u"a.flac"_s), QStringList({u"-d"_s, folder(), path(u"a.flac"_s)}));
    EXPECT_EQ(placeOf(u"a.FLAC"_s), QStringList({u"-n"_s, path(u"a.mp3"_s), path(u"a.FLAC"_s)}));
    EXPECT_EQ(placeOf(u"a.Flac"_s), QStringList({u"-n"_s, path(u"a.mp3"_s), path(u"a.Flac"_s)}));
    EXPECT_EQ(placeOf(u"a.WAV"_s), QStringList({u"-d"_s, folder(), path(u"a.WAV"_s)}));
}

TEST_F(MP3, AWavIsOneStageWithoutTags)
{
    tools_.install(u"shntool"_s, {u"copy"_s, encoded(), path(u"a.mp3"_s)});
    const QByteArray whole = fileBytes(encoded());
    const auto task = make(file(u"a.wav"_s));
    const auto set = task->results();
    run(task);
    EXPECT_FALSE(set->taskSetDone()) << "kept: the results are gone by then";
    EXPECT_EQ(task->title(), u"a.wav"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(fileBytes(path(u"a.mp3"_s)), whole) << "no tags are written";
    EXPECT_EQ(task->stage(), 1);
    EXPECT_EQ(task->stageCount(), 1);
    EXPECT_TRUE(queue_.outputWindows().empty());
    EXPECT_TRUE(exists(u"a.wav"_s));
}

TEST_F(MP3, FlacTagsAreCopiedBehindTheEncoding)
{
    tools_.install(u"shntool"_s, {u"copy"_s, encoded(), path(u"a.mp3"_s)});
    run(make(flac(u"a.flac"_s)));
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), u"Späti"_s);
}

TEST_F(MP3, WhatTheSourceDoesNotTellStays)
{
    const QString tagged = elsewhere_.filePath(u"t.mp3"_s);
    runTool(u"lame"_s, {u"--quiet"_s, u"--ta"_s, u"Someone"_s, u"--mp3input"_s, encoded(), tagged});
    tools_.install(u"shntool"_s, {u"copy"_s, tagged, path(u"a.mp3"_s)});
    run(make(flac(u"a.flac"_s)));
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), u"Späti"_s);
    EXPECT_EQ(TagLibTagsHelper().tagsForMP3File(path(u"a.mp3"_s))->artistText(), u"Someone"_s);
}

TEST_F(MP3, AppleLosslessIsDecodedInProcessAndEndsUnderItsOwnName)
{
    installNamingShntool();
    const auto task = run(make(lossless(u"a.m4a"_s)));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(othersThan({u"a.m4a"_s, u"a.mp3"_s}), QStringList());
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), u"Späti"_s);
    EXPECT_EQ(task->stage(), 2);
    EXPECT_EQ(task->stageCount(), 2);
}

TEST_F(MP3, AppleLosslessThatCannotBeReadNeverReachesShntool)
{
    tools_.install(u"shntool"_s);
    const auto task = make(file(u"a.m4a"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(u"a.m4a"_s));
    EXPECT_EQ(onlyReport().trimmed(), u"Unable to open the file for reading."_s);
    EXPECT_EQ(othersThan({u"a.m4a"_s}), QStringList());
}

TEST_F(MP3, AnExistingMP3OfAnAppleLosslessSourceStays)
{
    installNamingShntool();
    const QString wav = writeFile(elsewhere_.filePath(u"o.wav"_s), waveFile(makeSamples(44100, 1, 16, 9000)));
    runTool(u"lame"_s, {u"--quiet"_s, wav, path(u"a.mp3"_s)});
    const auto before = decodedByFfmpeg(path(u"a.mp3"_s), 16);
    const auto task = run(make(lossless(u"a.m4a"_s)));
    EXPECT_EQ(decodedByFfmpeg(path(u"a.mp3"_s), 16), before);
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), u"Späti"_s) << "kept: whatever stands under the name gets the tags";
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s) << "kept: nobody looks at the move";
    const QStringList others = othersThan({u"a.m4a"_s, u"a.mp3"_s});
    ASSERT_EQ(others.size(), 1);
    EXPECT_TRUE(others.first().startsWith(u"Zolt-"_s) && others.first().endsWith(u".mp3"_s));
}

TEST_F(MP3, AToolThatFailsIsAnErrorThatKeepsTheSource)
{
    tools_.install(u"shntool"_s, {u"out"_s, u"shntool: ERROR: file exists"_s, u"exit"_s, u"1"_s});
    const auto task = make(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
    EXPECT_TRUE(exists(u"a.wav"_s));
    EXPECT_EQ(onlyReport(), u"shntool: ERROR: file existsshntool: ERROR: file exists\n"_s);
}

TEST_F(MP3, ATextWithErrorAloneIsNone)
{
    tools_.install(u"shntool"_s, {u"out"_s, u"ERROR"_s});
    const auto task = make(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(task->error());
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(MP3, TagsThatCannotBeWrittenKeepTheSource)
{
    tools_.install(u"shntool"_s, {u"exit"_s, u"0"_s}); // says success and leaves nothing
    const auto task = make(flac(u"a.flac"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_TRUE(onlyReport().contains(u"Unable to open the output file for tagging."_s));
}

TEST_F(MP3, TagsGoIntoWhatAFailedToolLeft)
{
    tools_.install(u"shntool"_s, {u"copy"_s, encoded(), path(u"a.mp3"_s), u"exit"_s, u"1"_s});
    const auto task = run(make(flac(u"a.flac"_s)));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), u"Späti"_s);
}

TEST_F(MP3, TagsThatHaveNoRoomAreToldThoughTheRowIsGood)
{
    tools_.install(u"shntool"_s, {u"copy"_s, encoded(), path(u"a.mp3"_s)});
    const auto task = make(flac(u"a.flac"_s));
    {
        const FileSizeLimit limit(QFile(encoded()).size() + 1000);
        run(task);
    }
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_FALSE(task->error());
    EXPECT_TRUE(onlyReport().contains(u"The tags were not saved"_s)) << onlyReport().toStdString();
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), QString());
}

TEST_F(MP3, NamesThatAreNotUtf8AreKeptByteForByte)
{
    installNamingShntool();
    const QString inside = nameOfBytes(QFile::encodeName(folder()) + "/d\xe4/"), name = nameOfBytes("s\xe4tze");
    ASSERT_TRUE(makeDirectories(inside));
    const QString source = inside + name + u".m4a"_s;
    ASSERT_TRUE(moveItem(lossless(u"a.m4a"_s), source));
    const auto task =
        EncodeMP3Task::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(&queue_, source, u"CBR"_s, inside, 192);
    run(task);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    QStringList names = directoryListing(inside);
    names.sort();
    EXPECT_EQ(names, QStringList({name + u".m4a"_s, name + u".mp3"_s}));
    EXPECT_EQ(titleOf(inside + name + u".mp3"_s), u"Späti"_s);
}

TEST_F(MP3, AnUnreadableFlacGivesABlankRecordWhichIsWritten)
{
    tools_.install(u"shntool"_s, {u"copy"_s, encoded(), path(u"a.mp3"_s)});
    const auto task = run(make(file(u"a.flac"_s)));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), QString());
}

TEST_F(MP3, EachStageShowsItsStatus)
{
    const QString go = path(u"go"_s), on = path(u"on"_s);
    tools_.install(u"shntool"_s, {u"wait-file"_s, go, u"out"_s, u"\b 42% "_s, u"wait-file"_s, on});
    const auto task = make(file(u"a.wav"_s));
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Encoding to LAME MP3"_s; }));
    task->textField()->setStringValue(u"untouched"_s);
    touch(go);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Encoding to MP3: 42.000000%"_s; }));
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 42);
    EXPECT_EQ(task->textField()->stringValue(), u"untouched"_s);
    touch(on);
    settle();
}

TEST_F(MP3, ACancelEndsTheToolWithAllThatItStartedBeforeTagsAreWritten)
{
    // The child stands for lame, which would write on after shntool has gone; it says so in a file.
    const QString late = path(u"late"_s);
    tools_.install(u"shntool"_s, {u"copy"_s, encoded(), path(u"a.mp3"_s), u"child"_s, u"wait-file"_s, path(u"go"_s),
                                  u"touch"_s, late, u"exit"_s, u"0"_s});
    QFile script(tools_.directory() + u"/shntool"_s);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\ncp '" + encoded().toUtf8() + "' '" + path(u"a.mp3"_s).toUtf8() +
                 "'\n(trap '' HUP; while [ ! -e '" + path(u"go"_s).toUtf8() + "' ]; do sleep 0.05; done; touch '" +
                 late.toUtf8() + "') &\necho ' 7% '\nwait\n");
    script.close();
    const auto task = make(flac(u"a.flac"_s));
    task->setDeleteOriginal(true);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Encoding to MP3: 7.000000%"_s; }));
    task->cancelTask(nullptr);
    settle();
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_FALSE(task->error());
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_EQ(titleOf(path(u"a.mp3"_s)), u"Späti"_s) << "kept: what is there gets tags";
    EXPECT_EQ(task->topTextField()->stringValue(), u"Copying FLAC Tags"_s);
    touch(path(u"go"_s));
    EXPECT_EQ(test::run(u"pgrep"_s, {u"-f"_s, late}), QByteArray()) << "nobody is left to write";
    EXPECT_FALSE(QFile::exists(late));
}

TEST_F(MP3, ACancelWaitsForWhatOutlivesTheToolAndReadsNoMore)
{
    // The child stands for lame, which ends what it writes when it is told to end, while shntool is gone already.
    tools_.install(u"shntool"_s);
    QFile script(tools_.directory() + u"/shntool"_s);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n(trap \"echo ' 99% '; sleep 0.3; touch '" + path(u"late"_s).toUtf8() +
                 "'; exit\" TERM; echo ' 7% '; while :; do sleep 0.01; done) &\nwait\n");
    script.close();
    const auto task = make(file(u"a.wav"_s));
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Encoding to MP3: 7.000000%"_s; }));
    task->cancelTask(nullptr);
    settle();
    EXPECT_TRUE(exists(u"late"_s));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Encoding to MP3: 7.000000%"_s);
}

TEST_F(MP3, ACancelWithoutAnOutputIsNoError)
{
    tools_.install(u"shntool"_s, {u"out"_s, u" 7% "_s, u"wait-file"_s, path(u"go"_s)});
    const auto task = make(flac(u"a.flac"_s));
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Encoding to MP3: 7.000000%"_s; }));
    task->cancelTask(nullptr);
    settle();
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_FALSE(task->error());
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_TRUE(queue_.outputWindows().empty());
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_EQ(othersThan({u"a.flac"_s}), QStringList());
}

TEST_F(MP3, TheConsoleTextIsReadAtEveryCut)
{
    const QByteArray transcript = "Converting [a.wav] (0:20.00) --> [/o/a.mp3] :   0% \b\b\b\b\b  3% \b\b\b\b\b 68% "
                                  "\b\b\b\b\b100% OK\n";
    everyCut(transcript, [this](const QList<QByteArray>& pieces) {
        const auto task = make(path(u"a.wav"_s));
        for (const auto& piece : pieces)
            task->processTaskOutput(QString::fromUtf8(piece));
        const QString text = task->results()->results();
        EXPECT_TRUE(text.contains(u"OK"_s));
        task->setResults(nullptr);
    });
    const auto task = make(path(u"a.wav"_s));
    task->processTaskOutput(u"\b\b 12.5% \b"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Encoding to MP3: 12.500000%"_s);
    task->processTaskOutput(u"no number"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Encoding to MP3: 12.500000%"_s);
    task->processTaskOutput(u"Converting [a.wav]: OK"_s);
    EXPECT_EQ(task->results()->results(),
              u" 12.5% no numberConverting [a.wav]Converting [a.wav]: OKConverting [a.wav]: OK\n"_s);
    task->setResults(nullptr);
}
