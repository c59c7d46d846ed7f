#include "shell/DefaultSettings.h"

namespace zolt {

using namespace Qt::StringLiterals;

void registerDefaultSettings(UserDefaults& defaults)
{
    constexpr int secondsOfAWeek = 604800;
    defaults.registerDefaults({
        {u"shntoolNamesFormat"_s, u"%number. %name %time"_s},
        {u"maxThreads"_s, 2},
        {u"encodeOutputFormat"_s, 2},
        {u"encodeFlacLevel"_s, 5},
        {u"fixOutputFormat"_s, 1},
        {u"fixFlacLevel"_s, 4},
        {u"shntoolCommandOption"_s, 0},
        {u"shntoolLenOption"_s, 0},
        {u"shntoolOutputFormat"_s, 1},
        {u"lossySliderLevel"_s, 3},
        {u"lossyStepperLevel"_s, 88},
        {u"lossyComboLevel"_s, 160},
        {u"SUScheduledCheckInterval"_s, secondsOfAWeek},
        {u"trashOrDelete"_s, 0},
    });
}

} // namespace zolt
