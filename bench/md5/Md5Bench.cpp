// md5_bench [rounds]: one list over twelve WAVs of four minutes, made and checked, against md5sum over the same files;
// then two lists of six at a time against one md5sum over the twelve. Interleaved, page cache warm; medians of ratios.
#include "checksum/CreateMD5Task.h"
#include "checksum/VerifyMD5Task.h"
#include "platform/threads/MainQueue.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <thread>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

constexpr int fileCount = 12;
constexpr qint64 fourMinutes = 240LL * 44100 * 4 + 44; // bytes of a 16-bit stereo WAV

using Work = std::function<void()>;

double secondsOf(const Work& work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return double(clock.nsecsElapsed()) / 1e9;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Who goes first changes from round to round.
double medianRatio(int rounds, const Work& ours, const Work& theirs)
{
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const bool oursFirst = round % 2 == 0;
        const double first = secondsOf(oursFirst ? ours : theirs), second = secondsOf(oursFirst ? theirs : ours);
        ratios.push_back(oursFirst ? first / second : second / first);
    }
    return median(ratios);
}

void writeFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qUtf8Printable(path));
    QByteArray block(1048576, Qt::Uninitialized);
    QRandomGenerator(1).fillRange(reinterpret_cast<quint32*>(block.data()), block.size() / 4);
    for (qint64 left = fourMinutes; left > 0; left -= block.size())
        file.write(block.constData(), std::min<qint64>(left, block.size()));
}

void createList(const QStringList& files, const QString& list)
{
    CreateMD5Task::initWithQueueFilesOutputPath(nullptr, nullptr, list)->doCreateMd5(files);
}

void verifyList(const QString& list)
{
    const auto results = std::make_shared<ZOLTTaskResults>();
    const auto task = VerifyMD5Task::initWithQueueForFileNameWithResults(nullptr, list, results);
    results->addTaskInSet(task);
    task->doCreateMD5();
    if (results->results().count(u" : OK\n"_s) == 0) qFatal("%s does not verify", qUtf8Printable(list));
    results->setTasksInSet({});
}

void md5sum(const QStringList& arguments)
{
    QProcess tool;
    tool.setStandardOutputFile(QProcess::nullDevice());
    tool.start(u"md5sum"_s, arguments);
    if (!tool.waitForFinished(-1) || tool.exitCode() != 0) qFatal("md5sum failed");
}

void bothAtOnce(const Work& one, const Work& other)
{
    std::thread second(other);
    one();
    second.join();
}

void tell(const char* what, double ratio, double aim)
{
    std::printf("%-40s %6.3f  (aim %.2f)\n", what, ratio, aim);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    MainQueue::instance();
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const QTemporaryDir folder;
    QStringList files;
    for (int number = 0; number < fileCount; ++number)
        writeFile(files.emplaceBack(folder.filePath(u"%1.wav"_s.arg(number))));
    const QString list = folder.filePath(u"all.md5"_s);
    const QString halves[] = {folder.filePath(u"1.md5"_s), folder.filePath(u"2.md5"_s)};
    const qsizetype half = fileCount / 2;
    const Work theirs = [&] { md5sum(files); };
    createList(files, list); // and the page cache is warm

    std::printf("against md5sum over %d files\n", fileCount);
    tell("one list made",
         medianRatio(
             rounds, [&] { createList(files, list); }, theirs),
         1.03);
    tell("one list verified",
         medianRatio(
             rounds, [&] { verifyList(list); }, theirs),
         1.03);
    const Work twoLists = [&] {
        bothAtOnce([&] { createList(files.first(half), halves[0]); },
                   [&] { createList(files.sliced(half), halves[1]); });
    };
    tell("two lists of six made at once", medianRatio(rounds, twoLists, theirs), 0.55);
    const Work twoChecks = [&] { bothAtOnce([&] { verifyList(halves[0]); }, [&] { verifyList(halves[1]); }); };
    tell("two lists of six verified at once", medianRatio(rounds, twoChecks, theirs), 0.55);
    return 0;
}
