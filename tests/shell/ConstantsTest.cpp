#include "shell/Constants.h"

#include "support/test.h"

using C = zolt::Constants;

namespace {

struct Named
{
    const QString& constant;
    const char* value;
};

const Named everyConstant[] = {
    {C::DECODE, "decode"},
    {C::ENCODE, "encode"},
    {C::CHECKSUM, "checksum"},
    {C::SHNTOOL, "shntool"},
    {C::FIX_SBE, "fix SBE"},
    {C::UTIL, "util"},
    {C::LOSSY, "lossy"},
    {C::ABOUT, "about"},
    {C::TAGS, "Tags"},
    {C::AIFF, "AIFF"},
    {C::AIF, "AIF"},
    {C::WAV, "WAV"},
    {C::FLAC, "FLAC"},
    {C::SHN, "SHN"},
    {C::WV, "WV"},
    {C::TTA, "TTA"},
    {C::M4A, "M4A"},
    {C::APE, "APE"},
    {C::MD5, "MD5"},
    {C::ST5, "ST5"},
    {C::FFP, "FFP"},
    {C::MP3, "MP3"},
    {C::TXT, "TXT"},
    {C::CUE_EXT, "CUE"},
    {C::LEN, "len"},
    {C::INFO, "info"},
    {C::JOIN, "join"},
    {C::SPLIT, "split"},
    {C::CMP, "cmp"},
    {C::CUE, "cue"},
    {C::TRIM, "trim"},
    {C::FIX, "fix"},
    {C::STRIP, "strip"},
    {C::PAD, "pad"},
    {C::NORMAL_LEN_OUTPUT, "normal len output"},
    {C::LEN_BY_FILESET, "show len for fileset"},
    {C::LEN_BY_DISC, "show len by disc*"},
    {C::ZOLTTrackNamesEnteredNotification, "ZOLTTrackNamesEnteredNotification"},
    {C::ZOLTMaxThreadsChangedNotification, "ZOLTMaxThreadsChangedNotification"},
    {C::TITLE, "TITLE"},
    {C::ARTIST, "ARTIST"},
    {C::DATE, "DATE"},
    {C::ALBUM, "ALBUM"},
    {C::COMMENT, "COMMENT"},
    {C::GENRE, "GENRE"},
    {C::TRACKNUMBER, "TRACKNUMBER"},
    {C::DISCNUMBER, "DISCNUMBER"},
    {C::COMPOSER, "COMPOSER"},
    {C::CUE_TITLE, "TITLE"},
    {C::CUE_TRACK, "TRACK"},
    {C::GeneralTextForPrefs, "General"},
    {C::MetadataTextForPrefs, "Metadata"},
};

} // namespace

TEST(Constants, HaveTheirValues)
{
    for (const Named& named : everyConstant)
        EXPECT_EQ(named.constant, QString::fromLatin1(named.value));
    EXPECT_EQ(std::size(everyConstant), 52U);
}
