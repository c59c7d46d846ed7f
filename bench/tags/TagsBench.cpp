// Writes title and artist to 1,000 small FLAC files twice and reads them, by each contender on copies of the same
// files, and prints the milliseconds a file and the ratio to one run of metaflac a file. Each number is the best of
// three rounds; the folders are made new for each, where TMPDIR says: a memory file system takes the disk out of it.
// With --tab the Tags tab's run alone.
#include "Contenders.h"
#include "TabRun.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace zolt::bench;

namespace {

constexpr int files = 1000;
constexpr int rounds = 3;
constexpr const char* steps[] = {"first save", "later save", "reading"};

using Milliseconds = std::array<double, std::size(steps)>;

double timed(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6 / files;
}

/// Half a second of silence, as the encoder writes it: with its own padding behind the tags.
void makeSample(const QString& path)
{
    const QString wave = path + u".wav"_s;
    run({u"sox"_s, u"-n"_s, u"-r"_s, u"44100"_s, u"-b"_s, u"16"_s, wave, u"synth"_s, u"0.5"_s, u"sine"_s, u"440"_s});
    run({u"flac"_s, u"-s"_s, u"-o"_s, path, wave});
}

Milliseconds measured(const Contender& contender, const QString& sample)
{
    const QTemporaryDir folder;
    for (int i = 0; i < files; ++i)
        QFile::copy(sample, folder.filePath(u"%1.flac"_s.arg(i)));
    return {timed([&] { contender.write(folder.path(), u"a first title"_s); }),
            timed([&] { contender.write(folder.path(), u"another title"_s); }),
            timed([&] { contender.read(folder.path()); })};
}

void keepBest(Milliseconds& best, const Milliseconds& now)
{
    for (std::size_t i = 0; i < best.size(); ++i)
        best[i] = best[i] > 0 ? std::min(best[i], now[i]) : now[i];
}

void print(const std::vector<Contender>& all, const std::vector<Milliseconds>& best)
{
    std::printf("%-28s", "milliseconds a file");
    for (const char* step : steps)
        std::printf("%12s", step);
    for (std::size_t c = 0; c < all.size(); ++c) {
        std::printf("\n%-28s", qPrintable(all[c].name));
        for (const double value : best[c])
            std::printf("%12.3f", value);
    }
    std::printf("\n%-28s", "in process to metaflac");
    for (std::size_t i = 0; i < std::size(steps); ++i)
        std::printf("%12.3f", best[0][i] / best[1][i]);
    std::printf("\n");
}

void compareContenders(const QString& sample)
{
    const std::vector<Contender> all = contenders();
    std::vector<Milliseconds> best(all.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t c = 0; c < all.size(); ++c)
            keepBest(best[c], measured(all[c], sample));
    print(all, best);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString sample = folder.filePath(u"sample.flac"_s);
    makeSample(sample);
    if (!application.arguments().contains(u"--tab"_s)) compareContenders(sample);
    compareTabRun(sample);
    return 0;
}
