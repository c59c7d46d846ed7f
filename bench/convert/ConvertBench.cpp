// convert_bench [rounds]: the conversions of a five-minute file against ffmpeg, interleaved and two files at a time,
// then the peak memory for one and for thirty minutes.
#include "Contenders.h"
#include "SampleFiles.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

using namespace zolt::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int benchSeconds = 300;

constexpr Job jobs[] = {
    {"WAV to Apple Lossless", "wav", "alac.m4a", "-c:a alac", 1.00},
    {"Apple Lossless to WAV", "alac.m4a", "back.wav", "-c:a pcm_s16le", 1.00},
    {"AIFF to WAV", "aiff", "aiff.wav", "-c:a pcm_s16le", 1.00},
    {"WAV to AAC", "wav", "aac.m4a", "-c:a aac -b:a 128k", 1.03},
};

QString in(const QTemporaryDir& folder, const QString& side, const char* extension)
{
    return folder.filePath(side) + u'.' + QLatin1String(extension);
}

/// The inputs of all jobs under the name `source`.
void makeSources(const QTemporaryDir& folder, int seconds)
{
    const auto wave = in(folder, u"source"_s, "wav");
    writeMusic(wave, seconds);
    const QStringList start = {u"ffmpeg"_s, u"-v"_s, u"error"_s, u"-nostdin"_s, u"-y"_s, u"-i"_s, wave};
    runTogether({start + QStringList{u"-c:a"_s, u"alac"_s, in(folder, u"source"_s, "alac.m4a")}});
    runTogether({start + QStringList{in(folder, u"source"_s, "aiff")}});
}

/// One side's commands for the job, each with an output of its own.
QList<QStringList> commands(const Job& job, const QTemporaryDir& folder, bool ours, int count)
{
    QList<QStringList> list;
    for (int i = 0; i < count; ++i) {
        const auto input = in(folder, u"source"_s, job.source);
        const auto output = in(folder, (ours ? u"ours%1"_s : u"theirs%1"_s).arg(i), job.target);
        list << (ours ? ourCommand(input, output) : ffmpegCommand(job, input, output));
    }
    return list;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void compareSpeed(int rounds)
{
    const QTemporaryDir folder;
    makeSources(folder, benchSeconds);
    std::printf("%-24s %9s %9s %9s %9s %6s\n", "two files at a time", "ours s", "ffmpeg s", "wall", "cpu", "aim");
    for (const auto& job : jobs) {
        std::vector<double> ours, theirs, wall, cpu;
        for (int round = 0; round < rounds; ++round) {
            // Who goes first changes from round to round.
            const bool oursFirst = round % 2 == 0;
            const auto first = runTogether(commands(job, folder, oursFirst, 2));
            const auto second = runTogether(commands(job, folder, !oursFirst, 2));
            const auto& own = oursFirst ? first : second;
            const auto& other = oursFirst ? second : first;
            ours.push_back(own.wallSeconds);
            theirs.push_back(other.wallSeconds);
            wall.push_back(own.wallSeconds / other.wallSeconds);
            cpu.push_back(own.cpuSeconds / other.cpuSeconds);
        }
        std::printf("%-24s %9.3f %9.3f %9.3f %9.3f %6.2f\n", job.name, median(ours), median(theirs), median(wall),
                    median(cpu), job.aim);
        std::fflush(stdout);
    }
}

void compareMemory()
{
    std::printf("\n%-24s %14s %14s %14s %14s\n", "peak memory, MiB", "ours 1 min", "ours 30 min", "ffmpeg 1 min",
                "ffmpeg 30 min");
    double peaks[std::size(jobs)][4] = {};
    for (int length = 0; length < 2; ++length) {
        const QTemporaryDir folder;
        makeSources(folder, length ? 1800 : 60);
        for (size_t i = 0; i < std::size(jobs); ++i)
            for (int side = 0; side < 2; ++side)
                peaks[i][side * 2 + length] =
                    double(runTogether(commands(jobs[i], folder, side == 0, 1)).peakKilobytes) / 1024;
    }
    for (size_t i = 0; i < std::size(jobs); ++i)
        std::printf("%-24s %14.1f %14.1f %14.1f %14.1f\n", jobs[i].name, peaks[i][0], peaks[i][1], peaks[i][2],
                    peaks[i][3]);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == "--convert"_L1) return convertHere(arguments[2], arguments[3]);
    const int rounds = arguments.size() > 1 ? std::max(1, arguments[1].toInt()) : 7;
    compareSpeed(rounds);
    compareMemory();
    return 0;
}
