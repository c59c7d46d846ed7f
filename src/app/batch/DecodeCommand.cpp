#include "app/batch/DecodeCommand.h"

#include "app/Program.h"
#include "app/batch/CommonOptions.h"
#include "decode/DecodeTab.h"
#include "shell/Constants.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

BaseTab& setUp(Program& program, const BatchOptions& options)
{
    auto& tab = program.tab<DecodeTab>();
    tab.outputFormatMatrix->selectTitle(options.value(u"format"_s, Constants::WAV));
    tab.sourceDecodeButton->setState(setOutputFolder(tab, options));
    tab.decodeFlacThroughErrors->setState(options.has(u"through-errors"_s));
    tab.flacKeepForeignMetadataButton->setState(options.has(u"keep-foreign-metadata"_s));
    tab.deleteOriginalsButton->setState(options.has(u"delete-originals"_s));
    return tab;
}

} // namespace

BatchCommand decodeCommand()
{
    return {.syntax =
                {u"decode"_s,
                 u"turns compressed audio files into WAV or AIFF files"_s,
                 {{u"format"_s, u"FORMAT"_s, {Constants::WAV, Constants::AIFF}, u"the output format (otherwise WAV)"_s},
                  outOption(),
                  {u"through-errors"_s, {}, {}, u"FLAC: goes on behind a damaged place"_s},
                  {u"keep-foreign-metadata"_s, {}, {}, u"FLAC: restores the chunks kept of the first source"_s},
                  deleteOption()}},
            .setUp = setUp};
}

} // namespace zolt::batch
