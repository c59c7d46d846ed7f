#include "engine/ConsoleGrammar.h"

namespace zolt {

using namespace Qt::StringLiterals;

// flac -----------------------------------------------------------------------------------------------------------

const ConsoleGrammar ConsoleGrammar::flacDecode{.trim = CharacterSet::WhiteSpaceAndNewlines,
                                                .markers = {u"% "_s},
                                                .steps = {{u": "_s, 1}, {u"%"_s, 0}},
                                                .status = u"Decoding Flac: {digits}%"_s};

const ConsoleGrammar ConsoleGrammar::flacEncode{.trim = CharacterSet::WhiteSpaceAndNewlines,
                                                .markers = {u"%"_s},
                                                .steps = {{u": "_s, 1}, {u"%"_s, 0}},
                                                .second = Second::Ratio,
                                                .status = u"Encoding to Flac: {digits}% {second}"_s,
                                                .statusAlways = true,
                                                .barAlways = false};

const ConsoleGrammar ConsoleGrammar::flacTest{.trim = CharacterSet::WhiteSpaceAndNewlines,
                                              .markers = {u"%"_s},
                                              .steps = {{u", "_s, 1}, {u"%"_s, 0}},
                                              .status = u"Verifying: {value}%"_s,
                                              .barAlways = false,
                                              .appended = 0};

const ConsoleGrammar ConsoleGrammar::flacToWav{.trim = CharacterSet::WhiteSpaceAndNewlines,
                                               .markers = {u"% "_s},
                                               .steps = {{u": "_s, 1}, {u"%"_s, 0}},
                                               .status = u"Decoding to Wav: {digits}%"_s};

// wavpack and wvunpack -------------------------------------------------------------------------------------------

const ConsoleGrammar ConsoleGrammar::wavpackDecode{.markers = {u"% done..."_s},
                                                   .steps = {{u"%"_s, 0}},
                                                   .status = u"Decoding From Wavpack: {digits}%"_s,
                                                   .namesRow = false,
                                                   .appended = 2}; // kept: a report shows each piece twice

const ConsoleGrammar ConsoleGrammar::wavpackEncode{
    .markers = {u"% done..."_s},
    .steps = {{u"%"_s, 0}},
    .status = u"Encoding to Wavpack: {digits}%"_s,
    .namesRow = false,
    .errorTexts = {{u"couldn't read all samples, file may be corrupt!!"_s}, {u"overwrite"_s, u"(yes/no/all)?"_s}}};

const ConsoleGrammar ConsoleGrammar::wavpackTest{.markers = {u"%"_s},
                                                 .steps = {{u"% done"_s, 0}},
                                                 .status = u"Verifying: {value}%"_s,
                                                 .barAlways = false,
                                                 .slot = Slot::Own};

// ttaenc ---------------------------------------------------------------------------------------------------------

const ConsoleGrammar ConsoleGrammar::ttaDecode{.markers = {u"Percent Progress: "_s},
                                               .steps = {{u"Percent Progress: "_s, 1}},
                                               .status = u"Decoding From TTA: {digits}%"_s,
                                               .namesRow = false,
                                               .appended = 2};

const ConsoleGrammar ConsoleGrammar::ttaEncode{.markers = {u"Percent Progress: "_s},
                                               .steps = {{u"Percent Progress: "_s, 1}},
                                               .status = u"Encoding to TTA: {digits}%"_s,
                                               .namesRow = false,
                                               .appended = 2};

const ConsoleGrammar ConsoleGrammar::ttaTest = wavpackTest;

// mac ------------------------------------------------------------------------------------------------------------

namespace {

const QStringList macMarkers{u"Progress: "_s, u"%"_s, u"seconds remaining, "_s};
const QList<QStringList> macErrors{{u"Error: 10"_s}, {u"Error: 2000"_s}}; // kept: longer numbers count too

} // namespace

const ConsoleGrammar ConsoleGrammar::apeDecode{
    .trims = false,
    .markers = macMarkers,
    .second = Second::ScannedSeconds,
    .status = u"Decoding from Monkey's Audio: {digits}%   {second} seconds remaining"_s,
    .namesRow = false,
    .errorTexts = macErrors};

const ConsoleGrammar ConsoleGrammar::apeEncode{
    .trims = false,
    .markers = macMarkers,
    .second = Second::ScannedSeconds,
    .status = u"Encoding to Monkey's Audio: {digits}%   {second} seconds remaining"_s,
    .namesRow = false,
    .errorTexts = macErrors};

const ConsoleGrammar ConsoleGrammar::apeTest{.trims = false,
                                             .markers = {u"%"_s},
                                             .steps = {{u"Progress: "_s, 1}, {u"%"_s, 0}},
                                             .status = u"Verifying: {digits}%"_s,
                                             .barAlways = false,
                                             .appended = 0};

const ConsoleGrammar ConsoleGrammar::apeToWav{
    .trims = false,
    .markers = macMarkers,
    .second = Second::ScannedSeconds,
    .status = u"Decoding from Monkey's Audio: {digits}%   {second} seconds remaining"_s,
    .appended = 0,
    .errorTexts = macErrors};

// shntool conv ---------------------------------------------------------------------------------------------------

namespace {

/// The conversions differ in their status alone, the decoder also in what it keeps.
ConsoleGrammar shntoolConversion(const QString& status)
{
    return {.markers = {u"%"_s},
            .steps = {{u"%"_s, 0}},
            .status = status,
            .headWords = {u"Converting"_s},
            .closingWords = {u"ERROR"_s, u"OK"_s}};
}

ConsoleGrammar shntoolToMP3()
{
    ConsoleGrammar row = shntoolConversion(u"Encoding to MP3: {value}%"_s);
    row.namesRow = false;
    return row;
}

ConsoleGrammar shntoolToWav(const QString& status)
{
    ConsoleGrammar row = shntoolConversion(status);
    row.statusAlways = true; // kept: -1.000000 for a piece without a number
    row.namesRow = false;
    return row;
}

} // namespace

const ConsoleGrammar ConsoleGrammar::shnDecode{
    .markers = {u"%"_s}, .steps = {{u"%"_s, 0}}, .status = u"Decoding SHN: {value}%"_s};
const ConsoleGrammar ConsoleGrammar::shnEncode = shntoolConversion(u"Encoding to SHN: {value}%"_s);
const ConsoleGrammar ConsoleGrammar::shnToFlac = shntoolConversion(u"Encoding {subject} to Flac: {digits}%"_s);
const ConsoleGrammar ConsoleGrammar::shnToWavDecoding = shntoolToWav(u"Decoding to WAV: {value}%"_s);
const ConsoleGrammar ConsoleGrammar::mp3Encode = shntoolToMP3();
const ConsoleGrammar ConsoleGrammar::shnToWavEncoding = shntoolToWav(u"Encoding to WAV: {value}%"_s);

// shntool's other commands ---------------------------------------------------------------------------------------

const ConsoleGrammar ConsoleGrammar::shntoolJoin{.markers = {u"%"_s},
                                                 .steps = {{u"%"_s, 0}},
                                                 .status = u"Joining Files: {digits}%"_s,
                                                 .namesRow = false,
                                                 .headWords = {u"Joining"_s},
                                                 .closingWords = {u"ERROR"_s, u"OK"_s}};
const ConsoleGrammar ConsoleGrammar::shntoolTrim{.markers = {u"%"_s},
                                                 .steps = {{u"%"_s, 0}},
                                                 .status = u"{subject} Files: {digits}%"_s,
                                                 .namesRow = false,
                                                 .headWords = {u"Scanning"_s, u"Trimming"_s},
                                                 .closingWords = {u"ERROR"_s, u"OK"_s}};
// Heads with "Post-Padding" and "Stripping" have no effect: no headWords.
const ConsoleGrammar ConsoleGrammar::shntoolPad{
    .markers = {u"%"_s}, .steps = {{u"%"_s, 0}}, .status = u"Padding: {digits}%"_s};
const ConsoleGrammar ConsoleGrammar::shntoolStrip = shntoolPad; // kept: this one says "Padding" too
const ConsoleGrammar ConsoleGrammar::shntoolSplit{
    .markers = {u"%"_s}, .steps = {{u"%"_s, 0}}, .status = u"Splitting: {digits}%"_s};

} // namespace zolt
