#include "engine/ReportVerdict.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

struct Line
{
    const char* text;
    LineVerdict verdict;
};

void PrintTo(const Line& line, std::ostream* out)
{
    *out << line.text;
}

struct Told
{
    const char* report;
    const char* cause;
};

void PrintTo(const Told& told, std::ostream* out)
{
    *out << told.report;
}

class LinesOfReports : public testing::TestWithParam<Line>
{
};

class CausesOfReports : public testing::TestWithParam<Told>
{
};

using enum LineVerdict;

} // namespace

TEST_P(LinesOfReports, ReadAsTheirToolMeansThem)
{
    EXPECT_EQ(verdictOfLine(QString::fromUtf8(GetParam().text)), GetParam().verdict);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, LinesOfReports,
    testing::Values(Line{"a.flac : OK", Good}, Line{"ERROR : FAILED : OK", Good}, Line{"a.flac : FAILED", Bad},
                    Line{"no digest : Invalid checksum format", Bad},
                    Line{"a.flac : did not match fingerprint file", Bad},
                    Line{"a.shn : did not match shntool md5 file", Bad},
                    Line{"none.flac: ERROR: reading metadata, status = "
                         "\"FLAC__METADATA_CHAIN_STATUS_ERROR_OPENING_FILE\"",
                         Missing},
                    Line{"no.flac: ERROR: reading metadata, status = \"FLAC__METADATA_CHAIN_STATUS_NOT_A_FLAC_FILE\"",
                         Bad},
                    Line{"none.wav :  warning: cannot open non-existent file: [none.wav]", Missing},
                    Line{"Verify MD5: list.md5", Other}, Line{"The file does not appear to be a FLAC file.", Other}));

INSTANTIATE_TEST_SUITE_P(
    Tools, LinesOfReports,
    testing::Values(
        Line{"a.flac: ok                    ", Good}, Line{"a.flac: testing, 98% complete", Other},
        Line{"bad.flac: ERROR while decoding data", Bad}, Line{"a.flac: ERROR, MD5 signature mismatch", Bad},
        Line{"cut.flac: *** Got error code 0:FLAC__STREAM_DECODER_ERROR_STATUS_LOST_SYNC", Other},
        Line{"ERROR: output file a.wav already exists, use -f to override", Bad}, Line{"an ERROR in a sentence", Other},
        Line{"Converting [a.wav] (0:01.00) --> [a.shn] : 100% OK", Good},
        Line{"shntool [conv]: warning: none of the builtin format modules handle input file: [no.flac]", Bad},
        Line{"shntool [len]: error: need at least 1 file", Bad},
        Line{"verifying a.wv,   9% done...100% done...verified a.wv in 0.00 secs (lossless, 77.49%)    ", Good},
        Line{"verifying a.wv,   9% done...missing data or crc errors detected in 2 block(s)!   ", Bad},
        Line{"overwrite a.wav (yes/no/all)? ", Bad}, Line{"can't open file a.wv!", Missing}, Line{"Success.", Good},
        Line{"Error: 1002", Bad}, Line{"cannot start \"/x/flac\": No such file or directory", Bad}, Line{"", Other}));

TEST_P(CausesOfReports, AreToldInOneSentence)
{
    EXPECT_EQ(verdictOf(QString::fromUtf8(GetParam().report)).cause, QString::fromUtf8(GetParam().cause));
}

INSTANTIATE_TEST_SUITE_P(
    Of, CausesOfReports,
    testing::Values(
        Told{"flac 1.4.2\n\nERROR: output file a.wav already exists, use -f to override\n",
             "The output exists already."},
        Told{"a.flac: ERROR: can't open output file ro/x.wav: Permission denied\n\nAn error occurred opening the "
             "output file; it is likely that the output\ndirectory does not exist or is not writable, the output "
             "file already exists and\nis not writable, or the disk is full.\n",
             "The output cannot be written there: no right to write."},
        Told{"x: ERROR while writing\nAn error occurred while writing; the most common cause is that the disk is "
             "full.\n",
             "The disk has no room left."},
        Told{"restoring x.wav,   9% done...can't write .WAV data, disk probably full!  ", "The disk has no room left."},
        Told{"cut.flac: *** Got error code 0:FLAC__STREAM_DECODER_ERROR_STATUS_LOST_SYNC\n\n\ncut.flac: ERROR during "
             "decoding\n          state = FLAC__STREAM_DECODER_END_OF_STREAM\n",
             "The file is damaged or cut."},
        Told{"no.flac: *** Got error code 0:FLAC__STREAM_DECODER_ERROR_STATUS_LOST_SYNC\n\nThe input file is either "
             "not a FLAC file or is corrupted.  If you are\n\nno.flac: ERROR while decoding metadata\n",
             "The file is not of the kind that its name says, or it is damaged."},
        Told{"none.flac: ERROR initializing decoder\n           init status = "
             "FLAC__STREAM_DECODER_INIT_STATUS_ERROR_OPENING_FILE\n",
             "The source is not there or cannot be read."},
        Told{"cannot start \"/x/flac\": Permission denied\n", "The tool could not be started."},
        Told{"a.flac: ERROR of a new kind\n", ""},
        Told{"a.flac: ok\nSTATUS_LOST_SYNC is what a good report may well mention\n", ""}));

TEST(ReportVerdict, CountsEachKindOfLineAndPassesOverEmptyOnes)
{
    const auto verdict = verdictOf(u"Verify MD5: list.md5\na : OK\nb : OK\n\nc : FAILED\n"
                                   "d :  warning: cannot open non-existent file: [d]\n"_s);
    EXPECT_EQ(
        verdict,
        (ReportVerdict{
            .good = 2, .bad = 1, .missing = 1, .other = 1, .cause = u"The source is not there or cannot be read."_s}));
    EXPECT_TRUE(verdict.failed());
    EXPECT_EQ(inWords(verdict), u"2 OK, 1 failed, 1 missing"_s);
}

TEST(ReportVerdict, ReportWithoutOutcomesCountsItsLines)
{
    const auto verdict = verdictOf(u"one\ntwo\n"_s);
    EXPECT_FALSE(verdict.failed());
    EXPECT_EQ(inWords(verdict), u"2 lines"_s);
    EXPECT_EQ(inWords(verdictOf({})), u"0 lines"_s);
}

TEST(ReportVerdict, WhatKilledTheToolIsTheCauseWhateverItsTextSays)
{
    EXPECT_EQ(verdictOf(u"a.flac: ERROR while decoding\n"_s, {.missing = {}, .signal = SIGKILL}).cause,
              u"The tool was killed: by somebody, or by the system for want of memory."_s);
    EXPECT_EQ(verdictOf({}, {.missing = {}, .signal = SIGSEGV}).cause, u"The tool crashed (Segmentation fault)."_s);
    EXPECT_EQ(verdictOf({}, {.missing = {}, .signal = SIGXFSZ}).cause,
              u"The tool was killed (File size limit exceeded)."_s);
}
