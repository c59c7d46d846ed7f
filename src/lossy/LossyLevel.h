// What a format, a mode and a level come to, in words for a person.
#pragma once

#include <QString>

#include <cstdint>

namespace zolt {

/// What is chosen on the tab.
struct LossyChoice
{
    bool mp3 = true;   ///< otherwise AAC
    QString mode;      ///< one of lossyTitle
    int32_t level = 0; ///< kilobits a second, or a quality
};

/// "VBR 3: about 175 kbit/s, 1.3 MB a minute", "quality 88 of 127". A rate that lame changes is told with what it
/// makes of it.
QString levelInWords(const LossyChoice& choice);

/// About how many kilobits a second come of it; 0 where the encoder decides.
int32_t expectedRate(const LossyChoice& choice);

} // namespace zolt
