#include "app/batch/EncodeCommand.h"

#include "app/Program.h"
#include "app/batch/CommonOptions.h"
#include "encode/EncodeTab.h"
#include "shell/Constants.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

/// @throws UsageError for a level that the slider has no step for
void setLevel(Slider& slider, const QString& level)
{
    bool isNumber = false;
    const int value = level.toInt(&isNumber);
    const auto steps = int((slider.maxValue() - slider.minValue()) / slider.step());
    const double step = (value - slider.minValue()) / slider.step();
    if (!isNumber || step < 0 || step > steps || step != int(step)) {
        throw UsageError{u"--level must be one of %1 to %2 in steps of %3"_s.arg(slider.minValue())
                             .arg(slider.maxValue())
                             .arg(slider.step())};
    }
    slider.setIntValue(value);
}

/// @throws UsageError for a level that the target does not have
void setLevel(const EncodeTab& tab, const QString& level)
{
    const QString target = tab.target();
    if (target == C::FLAC) return setLevel(*tab.flacSlider, level);
    if (target == C::APE) return setLevel(*tab.apeSlider, level);
    if (target != C::WV) throw UsageError{u"%1 has no --level"_s.arg(target)};
    for (const QString& title : {u"Fast"_s, u"High"_s}) {
        if (title.compare(level, Qt::CaseInsensitive) == 0 && tab.wavepackFormatMatrix->selectTitle(title)) return;
    }
    throw UsageError{u"--level must be fast or high for WV"_s};
}

BaseTab& setUp(Program& program, const BatchOptions& options)
{
    auto& tab = program.tab<EncodeTab>();
    tab.outputFormatMatrix->selectTitle(options.value(u"to"_s, C::FLAC));
    tab.displayRelevantOptions();
    if (options.has(u"level"_s)) setLevel(tab, options.value(u"level"_s));
    tab.flacVerifyButton->setState(options.has(u"verify"_s));
    tab.flacLaxButton->setState(options.has(u"lax"_s));
    tab.flacKeepForeignMetadataButton->setState(options.has(u"keep-foreign-metadata"_s));
    tab.generateMD5Button->setState(options.has(u"md5"_s));
    tab.sourceEncodeButton->setState(setOutputFolder(tab, options));
    tab.deleteOriginalsButton->setState(options.has(u"delete-originals"_s));
    return tab;
}

} // namespace

BatchCommand encodeCommand()
{
    return {
        .syntax =
            {u"encode"_s,
             u"turns audio files into files of a lossless format"_s,
             {{u"to"_s,
               u"FORMAT"_s,
               {C::FLAC, C::SHN, C::APE, C::WV, C::TTA, C::M4A},
               u"the format (otherwise FLAC)"_s},
              {u"level"_s, u"LEVEL"_s, {}, u"FLAC: 0 to 8; APE: 1000, 2000, 3000, 4000 or 5000; WV: fast or high"_s},
              {u"verify"_s, {}, {}, u"FLAC: decodes what was encoded and compares it"_s},
              {u"lax"_s, {}, {}, u"FLAC: allows streams outside the usual subset, at flac's own level"_s},
              {u"keep-foreign-metadata"_s, {}, {}, u"FLAC: keeps chunks of the source that hold no audio"_s},
              {u"md5"_s, {}, {}, u"SHN: writes md5sum.md5 over the outputs"_s},
              outOption(),
              deleteOption()}},
        .setUp = setUp};
}

} // namespace zolt::batch
