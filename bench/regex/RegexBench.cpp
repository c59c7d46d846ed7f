// Searches 80-character console pieces with the cached layer and with everything it could be replaced by.
// Prints nanoseconds a piece (the best of many rounds, taken in turns) and the ratio to ICU held by hand.
#include "Contenders.h"

#include <QElapsedTimer>

#include <cstdio>
#include <cstdlib>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

constexpr int pieceCount = 1000;
constexpr int rounds = 60;
constexpr std::size_t reference = 1;

using Work = std::function<qsizetype(const QStringList&)> Contender::*;

QStringList consolePieces(const QString& start)
{
    QStringList pieces;
    for (int number = 0; number < pieceCount; ++number) {
        pieces << (start.arg(number % 100, 3) + u" reading sectors from the disc, with all of its tracks "_s)
                      .leftJustified(80, u' ', true);
    }
    return pieces;
}

double nanosecondsAPiece(const std::function<qsizetype(const QStringList&)>& work, const QStringList& pieces,
                         qsizetype expected)
{
    QElapsedTimer timer;
    timer.start();
    if (work(pieces) != expected) {
        std::fputs("the contenders do not agree\n", stderr);
        std::exit(1);
    }
    return static_cast<double>(timer.nsecsElapsed()) / static_cast<double>(pieces.size());
}

void compare(const char* title, const QString& pattern, Work work, const QStringList& pieces)
{
    const std::vector<Contender> all = contenders(pattern, u""_s);
    std::vector<double> best(all.size(), 1e18);
    const qsizetype expected = (all[reference].*work)(pieces);
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t number = 0; number < all.size(); ++number) {
            best[number] = std::min(best[number], nanosecondsAPiece(all[number].*work, pieces, expected));
        }
    }
    std::printf("\n%s, pattern \"%s\"\n%-28s %12s %10s\n", title, qUtf8Printable(pattern), "", "ns a piece", "ratio");
    for (std::size_t number = 0; number < all.size(); ++number) {
        std::printf("%-28s %12.1f %10.3f\n", qUtf8Printable(all[number].name), best[number],
                    best[number] / best[reference]);
    }
}

/// A search as the program makes it.
struct Case
{
    const char* title;
    QString pattern;
    Work work;
    QString piece; ///< how the pieces start; %1 is a number
};

std::vector<Case> cases()
{
    const QString trackDone = u"[0-9]+ rderr, [0-9]+ skip, [0-9]+ atom"_s;
    const QString date = u"^(0?[1-9]|1[012])[- /.](0?[1-9]|[12][0-9]|3[01])[- /.](19|20)\\d\\d"_s;
    const QString time = u"\\(?\\[?[0-9]+[\\:\\.][0-9]*([\\:\\.]?[0-9]*)?\\)?\\]?$"_s;
    return {
        {"End of a track, in no piece", trackDone, &Contender::match, u"track 07: %1%"_s},
        {"End of a track, in each piece", trackDone, &Contender::match, u"%1 rderr, 0 skip, 0 atom"_s},
        {"A date in front, in no line", date, &Contender::match, u"%1. A title"_s},
        {"A time at the end, in no line", time, &Contender::match, u"%1. A title"_s},
        {"Percentage removed, in no piece", u"[0-9]+%"_s, &Contender::replace, u"track 07: %1"_s},
        {"Percentage removed, in each piece", u"[0-9]+%"_s, &Contender::replace, u"track 07: %1%"_s},
    };
}

} // namespace

int main()
{
    for (const Case& one : cases())
        compare(one.title, one.pattern, one.work, consolePieces(one.piece));
    return 0;
}
