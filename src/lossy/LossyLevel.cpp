#include "lossy/LossyLevel.h"

#include "lossy/LossyTitles.h"

#include <array>
#include <cstdlib>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// What lame's qualities 0 to 9 take of stereo music, in kilobits a second.
constexpr std::array<int32_t, 10> vbrRates = {245, 225, 190, 175, 165, 130, 115, 100, 85, 65};

/// The rates that MP3 has; lame takes the nearest one, and the lower of two that are as near.
constexpr int32_t mp3Rates[] = {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr int32_t lamesOwnRate = 128;
/// Below it lame takes the sample rate of stereo down, too.
constexpr int32_t fullSampleRateFrom = 128;

int32_t nearestMP3Rate(int32_t asked)
{
    if (asked <= 0) return lamesOwnRate;
    int32_t nearest = mp3Rates[0];
    for (const int32_t rate : mp3Rates)
        if (std::abs(rate - asked) < std::abs(nearest - asked)) nearest = rate;
    return nearest;
}

bool isQuality(const LossyChoice& choice)
{
    return choice.mode == lossyTitle::VBR;
}

QString sizeText(int32_t kilobits)
{
    constexpr double megabytesAMinute = 60.0 / 8 / 1000;
    return u"%1 MB a minute"_s.arg(kilobits * megabytesAMinute, 0, 'f', 1);
}

QString mp3RateText(int32_t asked)
{
    const int32_t rate = nearestMP3Rate(asked);
    QString text = u"%1 kbit/s, %2"_s.arg(QString::number(rate), sizeText(rate));
    if (asked != rate) text = u"MP3 has no %1 kbit/s, lame takes %2"_s.arg(QString::number(asked), text);
    return rate < fullSampleRateFrom ? text + u"; the sample rate is lowered"_s : text;
}

QString mp3QualityText(int32_t level)
{
    if (level < 0 || level >= int32_t(vbrRates.size())) return u"VBR %1: lame decides"_s.arg(level);
    const int32_t rate = vbrRates[size_t(level)];
    return u"VBR %1: about %2 kbit/s, %3"_s.arg(QString::number(level), QString::number(rate), sizeText(rate));
}

QString aacText(const LossyChoice& choice)
{
    if (choice.level <= 0) return u"the encoder's own %1"_s.arg(isQuality(choice) ? u"quality"_s : u"rate"_s);
    if (isQuality(choice)) return u"quality %1 of 127"_s.arg(choice.level);
    const QString about = choice.mode == lossyTitle::CBR ? QString() : u"about "_s;
    return about + u"%1 kbit/s, %2"_s.arg(QString::number(choice.level), sizeText(choice.level));
}

} // namespace

QString levelInWords(const LossyChoice& choice)
{
    if (!choice.mp3) return aacText(choice);
    return isQuality(choice) ? mp3QualityText(choice.level) : mp3RateText(choice.level);
}

int32_t expectedRate(const LossyChoice& choice)
{
    if (!isQuality(choice)) return choice.mp3 ? nearestMP3Rate(choice.level) : std::max(0, choice.level);
    const bool known = choice.mp3 && choice.level >= 0 && choice.level < int32_t(vbrRates.size());
    return known ? vbrRates[size_t(choice.level)] : 0;
}

} // namespace zolt
