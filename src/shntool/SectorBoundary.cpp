#include "shntool/SectorBoundary.h"

#include "platform/files/FileNames.h"
#include "platform/text/Text.h"
#include "shell/Wording.h"
#include "tags/AudioFacts.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int framesInSector = 588, bytesInFrame = 4;
constexpr qsizetype mostNamed = 3, mostListed = 30;

/// "a.wav by 12 bytes, b.wav by 4 bytes and 3 more".
QString named(const QStringList& all)
{
    if (all.size() <= mostNamed) return enumerated(all);
    return all.first(mostNamed).join(u", "_s) + u" and %1 more"_s.arg(all.size() - mostNamed);
}

QString listed(const QStringList& all)
{
    if (all.size() <= mostNamed) return QString();
    const qsizetype rest = all.size() - mostListed;
    const QString lines = all.first(std::min(all.size(), mostListed)).join(u'\n');
    return rest > 0 ? lines + u"\nand %1 more"_s.arg(rest) : lines;
}

} // namespace

bool isCdAudio(const AudioFormatObject& format)
{
    return format.sampleRate() == 44100 && format.bitsPerChannel() == 16 && format.channels() == 2;
}

int bytesOffBoundary(const AudioFormatObject& format)
{
    return int(format.totalSamples() % framesInSector) * bytesInFrame;
}

BoundaryWords boundariesInWords(const QStringList& files, const std::atomic<bool>& stop)
{
    if (files.isEmpty())
        return {u"A sector holds 588 frames of 44.1 kHz, 16 bits and stereo; other audio has none."_s, {}};
    QStringList off, other, unknown;
    for (const QString& file : files) {
        if (stop) return {};
        const QString name = path::lastComponent(file);
        const auto format = audioFormatOf(file);
        if (!format)
            unknown += name;
        else if (!isCdAudio(*format))
            other += name;
        else if (const int bytes = bytesOffBoundary(*format))
            off += u"%1 by %2"_s.arg(name, counted(bytes, u"byte"_s));
    }
    QStringList sentences;
    if (!off.isEmpty())
        sentences += u"Off a sector boundary: %1."_s.arg(named(off));
    else if (other.size() + unknown.size() < files.size())
        sentences += u"Every file of CD audio ends on a sector boundary."_s;
    if (!other.isEmpty()) sentences += u"No CD audio, so without sectors: %1."_s.arg(named(other));
    if (!unknown.isEmpty()) sentences += u"Not known without the tool: %1."_s.arg(named(unknown));
    return {readableName(sentences.join(u' ')), readableName(listed(off))};
}

} // namespace zolt
