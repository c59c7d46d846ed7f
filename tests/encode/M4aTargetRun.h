// What the tests of the two tasks that make M4A files share.
#pragma once

#include "Silence.h"
#include "support/Programs.h"
#include "support/TaskRun.h"

namespace zolt::test {

/// One decoding on the way, of a tool that prints a piece with 42 in it.
struct M4aDecoding
{
    QString tool, source, firstStatus, piece, status;
};

class M4aTargetRun : public TaskRun
{
protected:
    M4aTargetRun() { tools_.install(QStringLiteral("AtomicParsley")); }

    QString wave(const QString& name, double rate = 44100, uint32_t bits = 16, int frames = 30000) const
    {
        return writeFile(path(name), waveFile(makeSamples(rate, 2, bits, frames)));
    }
    /// A decoder that "decodes" into its argument of that number.
    void installDecoder(const QString& tool, int target, const QStringList& before = {},
                        const QString& status = QStringLiteral("0"))
    {
        const QString wav = writeFile(elsewhere_.filePath(QStringLiteral("decoded.wav")), waveFile(decoded_));
        tools_.install(tool, before + QStringList{QStringLiteral("copy"), wav, QStringLiteral("${%1}").arg(target),
                                                  QStringLiteral("exit"), status});
    }
    /// Every tag of a file, a line each.
    QByteArray tagsOf(const QString& name) const
    {
        return runTool(QStringLiteral("ffprobe"),
                       {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                        QStringLiteral("format_tags"), path(name)});
    }

    /// Runs a task on "a.shn", whose decoder stands in argument 9.
    void expectShntoolToDecodeFirst(const std::shared_ptr<ZOLTTask>& task)
    {
        installDecoder(QStringLiteral("shntool"), 9,
                       {QStringLiteral("out"), QStringLiteral("Converting [a.shn] (0:01.00) --> [x] :  42% ")});
        run(task);
        const QStringList call = tools_.calls(QStringLiteral("shntool")).value(0);
        EXPECT_EQ(
            call.join(u' '),
            QStringLiteral("conv -P pct -O always -o wav -n %1 %2").arg(call.value(8), path(QStringLiteral("a.shn"))));
        EXPECT_EQ(path::deletingLastComponent(call.value(8)), folder());
        EXPECT_EQ(othersThan({QStringLiteral("a.shn"), QStringLiteral("a.m4a")}), QStringList());
        EXPECT_EQ(task->stage(), 2);
        EXPECT_EQ(task->stageCount(), 2);
        EXPECT_TRUE(queue_.outputWindows().empty());
    }
    /// Runs a task on "a.flac".
    void expectFlacToDecodeFirst(const std::shared_ptr<ZOLTTask>& task)
    {
        installDecoder(QStringLiteral("flac"), 4);
        run(task);
        const QStringList call = tools_.calls(QStringLiteral("flac")).value(0);
        EXPECT_EQ(call.join(u' '), QStringLiteral("-d %1 -o %2 -f").arg(path(QStringLiteral("a.flac")), call.value(3)));
        EXPECT_EQ(othersThan({QStringLiteral("a.flac"), QStringLiteral("a.m4a")}), QStringList());
        EXPECT_EQ(task->stage(), 2);
    }
    /// @param make  makes a task on a source
    template <class Make> void expectToBeShown(const std::vector<M4aDecoding>& decodings, Make make)
    {
        const QString go = path(QStringLiteral("go")), on = path(QStringLiteral("on"));
        const QString waits = QStringLiteral("wait-file");
        for (const auto& [tool, source, firstStatus, piece, status] : decodings) {
            tools_.install(tool, {waits, go, QStringLiteral("out"), piece, waits, on});
            const auto task = make(file(source));
            queue_.addTask(task);
            ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == firstStatus; }));
            touch(go);
            ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == status; }));
            EXPECT_EQ(task->progressIndicator()->doubleValue(), 42);
            touch(on);
            settle();
            QFile::remove(go);
            QFile::remove(on);
        }
    }
    template <class Make> void expectWavpackAndTrueAudioToBeDeclinedByTheService(Make make)
    {
        for (const QString& name : {QStringLiteral("a.wv"), QStringLiteral("a.tta")}) {
            EXPECT_TRUE(run(make(file(name)))->error());
            EXPECT_TRUE(queue_.outputWindows().back()->textField()->string().startsWith(
                QStringLiteral("Error encoding %1 to Apple Lossless:\n").arg(path(name))));
        }
        EXPECT_FALSE(exists(QStringLiteral("a.m4a")));
    }
    /// Runs a task on a source whose decoder is not there, or whose text is not as it should be.
    template <class Make> void expectNoTemporaryFileBehind(const QString& source, const QString& reason, Make make)
    {
        EXPECT_TRUE(run(make(file(source)))->error()) << source.toStdString();
        EXPECT_TRUE(queue_.outputWindows().back()->textField()->string().contains(reason));
        EXPECT_EQ(othersThan({source}), QStringList());
        QFile::remove(path(source));
    }

    /// Cancels a task on a long silent source while it encodes.
    /// @param status  how its status line begins then
    /// @param make    makes a task on a source
    template <class Make> void expectCancelToLeaveAShortFile(const QString& status, Make make)
    {
        constexpr int64_t frames = 100000000;
        const QString source = silence(path(QStringLiteral("a.wav")), frames);
        const auto task = make(source);
        task->setDeleteOriginal(true);
        queue_.addTask(task);
        ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue().startsWith(status); }));
        task->cancelTask(nullptr);
        EXPECT_EQ(task->textField()->stringValue(), QStringLiteral("Canceled"));
        settle();
        EXPECT_TRUE(QFile::exists(source));
        EXPECT_GT(statedLength(path(QStringLiteral("a.m4a"))), 0);
        EXPECT_LT(statedLength(path(QStringLiteral("a.m4a"))), frames);
        EXPECT_TRUE(queue_.outputWindows().empty());
    }

    const Samples decoded_ = makeSamples(44100, 2, 16, 30000);
    const LogCapture log_;
};

} // namespace zolt::test
