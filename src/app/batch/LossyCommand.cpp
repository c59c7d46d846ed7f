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

/// What the level of a mode may be, and what it is where none is given, whatever was last chosen in the window.
struct Levels
{
    int lowest, highest, usual;
};

Levels levelsOf(const LossyChoice& chosen)
{
    constexpr int highestRate = 2000; // kilobits: more than any encoder has
    if (chosen.mode != lossyTitle::VBR) return {1, highestRate, 160};
    return chosen.mp3 ? Levels{0, 9, 3} : Levels{0, 127, 88};
}

/// @throws UsageError for a text that is no number in the range
int levelOf(const QString& text, const Levels& levels)
{
    bool isNumber = false;
    const int level = text.toInt(&isNumber);
    if (isNumber && level >= levels.lowest && level <= levels.highest) return level;
    throw UsageError{u"--level must be a number from %1 to %2 in this mode"_s.arg(levels.lowest).arg(levels.highest)};
}

/// The level of the mode that is chosen.
void setLevel(LossyTab& tab, const BatchOptions& options)
{
    const LossyChoice chosen = tab.choice();
    const Levels levels = levelsOf(chosen);
    const int level = levelOf(options.value(u"level"_s, QString::number(levels.usual)), levels);
    if (chosen.mode != lossyTitle::VBR) return tab.setComboLevel(level);
    chosen.mp3 ? tab.setSliderLevel(level) : tab.setStepperLevel(level);
}

BaseTab& setUp(Program& program, const BatchOptions& options)
{
    auto& tab = program.tab<LossyTab>();
    const QString format = options.value(u"to"_s, mp3);
    const bool toMP3 = format == mp3;
    tab.outputFormatMatrix->selectTitle(toMP3 ? lossyTitle::MP3 : lossyTitle::AAC);
    setMode(toMP3 ? *tab.mp3Matrix : *tab.aacMatrix, format, options.value(u"mode"_s, lossyTitle::VBR));
    setLevel(tab, options);
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
