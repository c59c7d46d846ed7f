// What a piece of shntool's flood costs, and of wavpack's: through its dialect and a task's parser, onto the row and
// into the results.

#include "../queue/Clock.h"
#include "encode/EncodeWavpackTask.h"
#include "engine/console/ConsoleDialect.h"
#include "platform/desktop/UserDefaults.h"
#include "shntool/FixTab.h"
#include "shntool/FixTask.h"
#include "shntool/SHNToolJoinTask.h"
#include "shntool/SHNToolPadTask.h"
#include "shntool/SHNToolSplitTask.h"
#include "shntool/SHNToolStripTask.h"
#include "shntool/SHNToolTrimTask.h"

#include <QCoreApplication>

#include <cstdio>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

constexpr int files = 200, repetitions = 5;
constexpr double aim = 20.0; // microseconds

/// One run over many files, read by read: heads in parts, and each number with its backspaces one by one.
QByteArrayList flood(const QByteArray& word)
{
    QByteArrayList pieces;
    for (int file = 0; file < files; ++file) {
        const QByteArray name = "d1t" + QByteArray::number(file);
        pieces +=
            {word + ' ', "[/shows/live/" + name + ".wav] ", "(5:00.00) ", "--> ", "[/out/" + name + ".flac] ", ": "};
        for (int percent = 0; percent <= 100; ++percent) {
            pieces += QByteArray::number(percent).rightJustified(3) + "% ";
            pieces += QByteArrayList(5, "\b");
        }
        pieces += "OK\n";
    }
    return pieces;
}

/// The same of wavpack, which writes a number and what takes back the one before at once.
QByteArrayList wavpackFlood()
{
    QByteArrayList pieces;
    for (int file = 0; file < files; ++file) {
        pieces += "creating d1t" + QByteArray::number(file) + ".wv,";
        for (int percent = 0; percent <= 100; ++percent)
            pieces += QByteArray(12, '\b') + QByteArray::number(percent).rightJustified(3) + "% done...";
    }
    return pieces;
}

template <class Task> void follow(Task& task, const QString& tool, const QByteArrayList& pieces)
{
    const auto dialect = dialectFor(tool, {});
    for (const QByteArray& piece : pieces) {
        const QByteArray text = dialect->complete(piece);
        if (!text.isEmpty()) task.processTaskOutput(decodeUtf8(text));
    }
}

/// @param make  a new task for each repetition
template <class Make> void print(const char* name, const QString& tool, const QByteArrayList& pieces, Make make)
{
    double best = 1e12;
    for (int i = 0; i < repetitions; ++i) {
        const auto task = make();
        best = std::min(best,
                        bench::millisecondsOf([&] { follow(*task, tool, pieces); }) * 1000.0 / double(pieces.size()));
        task->setResults(nullptr);
    }
    std::printf("  %-8s %9.2f us\n", name, best);
}

template <class Make> void print(const char* name, const QByteArray& word, Make make)
{
    print(name, u"shntool"_s, flood(word), make);
}

template <class Task> auto maker()
{
    return [] {
        return Task::initAsyncTaskWithQueueLaunchPathArguments(nullptr, u"shntool"_s, QStringList(8, u"/a.wav"_s));
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    UserDefaults::standard().keepInMemory();
    std::printf("a piece of a tool's output, best of %d runs over %d files (aim: %.0f us)\n", repetitions, files, aim);
    print("join", "Joining", maker<SHNToolJoinTask>());
    print("trim", "Trimming", maker<SHNToolTrimTask>());
    print("pad", "Post-Padding", maker<SHNToolPadTask>());
    print("strip", "Stripping", maker<SHNToolStripTask>());
    print("split", "Splitting", maker<SHNToolSplitTask>());
    FixTab tab;
    for (int file = 0; file < files; ++file)
        tab.addFile(u"/shows/live/d1t%1.wav"_s.arg(file));
    print("fix", "Fixing", [&tab] {
        return FixTask::initFixTaskWithQueueFileNamesOutputFormatOutputPathMd5OptionFlacLevelTab(
            nullptr, tab.fileList(), u"flac"_s, u"/out"_s, FixTask::noMD5, 5, &tab);
    });
    print("wavpack", u"wavpack"_s, wavpackFlood(), [] {
        return EncodeWavpackTask::initEncodeTaskWithQueueFileNameLevelOutputPath(nullptr, u"/a.wav"_s, u"-f"_s,
                                                                                 u"/out"_s);
    });
}
