#include "app/batch/LossyCommand.h"

#include "app/Program.h"
#include "app/batch/CommonOptions.h"
#include "lossy/LossyTab.h"
#include "lossy/LossyTitles.h"
#include "shell/Constants.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

const QString mp3 = u"MP3"_s;

/// @throws UsageError for a mode that the format does not have
void setMode(Matrix& modes, const QString& format, const QString& mode)
{
    if (!modes.selectTitle(mode)) throw UsageError{u"%1 has no --mode %2"_s.arg(format, mode)};
}

/// @throws UsageError for a text that is no number from `lowest` to `highest`
int levelOf(const QString& text, int lowest, int highest)
{
    bool isNumber = false;
    const int level = text.toInt(&isNumber);
    if (isNumber && level >= lowest && level <= highest) return level;
    throw UsageError{u"--level must be a number from %1 to %2 in this mode"_s.arg(lowest).arg(highest)};
}

/// The level of the mode that is chosen; without one the settings' stays.
void setLevel(LossyTab& tab, const QString& text)
{
    constexpr int highestRate = 2000; // kilobits: more than any encoder has
    const LossyChoice chosen = tab.choice();
    if (chosen.mode != lossyTitle::VBR) return tab.setComboLevel(levelOf(text, 1, highestRate));
    if (chosen.mp3) return tab.setSliderLevel(levelOf(text, 0, int(tab.slider->maxValue())));
    tab.setStepperLevel(levelOf(text, 0, int(tab.stepper->maxValue())));
}

BaseTab& setUp(Program& program, const BatchOptions& options)
{
    auto& tab = program.tab<LossyTab>();
    const QString format = options.value(u"to"_s, mp3);
    const bool toMP3 = format == mp3;
    tab.outputFormatMatrix->selectTitle(toMP3 ? lossyTitle::MP3 : lossyTitle::AAC);
    setMode(toMP3 ? *tab.mp3Matrix : *tab.aacMatrix, format, options.value(u"mode"_s, lossyTitle::VBR));
    if (options.has(u"level"_s)) setLevel(tab, options.value(u"level"_s));
    tab.displayRelevantOptions();
    tab.sourceEncodeButton->setState(setOutputFolder(tab, options));
    tab.deleteOriginalsButton->setState(options.has(u"delete-originals"_s));
    return tab;
}

} // namespace

BatchCommand lossyCommand()
{
    return {.syntax = {u"lossy"_s,
                       u"turns audio files into MP3 or AAC files"_s,
                       {{u"to"_s, u"FORMAT"_s, {mp3, lossyTitle::AAC}, u"the format (otherwise MP3)"_s},
                        {u"mode"_s,
                         u"MODE"_s,
                         {lossyTitle::CBR, lossyTitle::VBR, lossyTitle::ABR, lossyTitle::VBR_CONSTRAINED},
                         u"how the bit rate is held (otherwise VBR); the last two for AAC alone"_s},
                        {u"level"_s,
                         u"N"_s,
                         {},
                         u"VBR: a quality, 0 to 9 with 0 the best for MP3 (otherwise 3), 0 to 127 for AAC (otherwise "
                         "88); else kilobits a second (otherwise 160)"_s},
                        outOption(),
                        deleteOption()}},
            .setUp = setUp};
}

} // namespace zolt::batch
