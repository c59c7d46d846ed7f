#include "Contenders.h"

#include "encode/EncodeCoreAudioSync.h"
#include "engine/ZOLTTask.h"
#include "platform/audio/EncoderSettings.h"

#include <QCoreApplication>

#include <chrono>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zolt::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int bitRate = 128000;

double seconds(const timeval& time)
{
    return double(time.tv_sec) + double(time.tv_usec) / 1e6;
}

pid_t start(const QStringList& command)
{
    std::vector<QByteArray> words;
    for (const auto& word : command)
        words.push_back(word.toLocal8Bit());
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0) return child;
    std::perror(arguments[0]);
    std::exit(1);
}

} // namespace

int convertHere(const QString& input, const QString& output)
{
    const bool aac = output.endsWith(".aac.m4a"_L1);
    const bool wave = output.endsWith(".wav"_L1);
    const auto task = ZOLTTask::initWithQueue(nullptr);
    const auto conversion = EncodeCoreAudioSync::initEncodeWithTaskFileNameOutputFileFormatTypeFileType(
        task, input, output,
        wave  ? formatId::LinearPcm
        : aac ? formatId::Aac
              : formatId::AppleLossless,
        wave ? fileTypeId::Wave : fileTypeId::M4a);
    if (aac) conversion->setBitrate(bitRate);
    conversion->doEncodeCall();
    if (task->error()) std::fprintf(stderr, "%s\n", qPrintable(task->results()->results()));
    return task->error() ? 1 : 0;
}

QStringList ourCommand(const QString& input, const QString& output)
{
    return {QCoreApplication::applicationFilePath(), u"--convert"_s, input, output};
}

QStringList ffmpegCommand(const Job& job, const QString& input, const QString& output)
{
    QStringList command = {u"ffmpeg"_s, u"-v"_s, u"error"_s, u"-nostdin"_s, u"-y"_s, u"-i"_s, input};
    command += QString::fromLatin1(job.codec).split(u' ');
    return command << output;
}

Cost runTogether(const QList<QStringList>& commands)
{
    const auto begin = std::chrono::steady_clock::now();
    std::vector<pid_t> children;
    for (const auto& command : commands)
        children.push_back(start(command));
    Cost cost;
    for (const auto child : children) {
        int status = 0;
        rusage usage = {};
        wait4(child, &status, 0, &usage);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) std::exit(1);
        cost.cpuSeconds += seconds(usage.ru_utime) + seconds(usage.ru_stime);
        cost.peakKilobytes = std::max(cost.peakKilobytes, usage.ru_maxrss);
    }
    cost.wallSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    return cost;
}

} // namespace zolt::bench
