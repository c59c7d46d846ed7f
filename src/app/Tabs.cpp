#include "app/Tabs.h"

#include "checksum/ChecksumTab.h"
#include "decode/DecodeTab.h"
#include "encode/EncodeTab.h"
#include "lossy/LossyTab.h"
#include "shell/Constants.h"
#include "shntool/FixTab.h"
#include "shntool/SHNtoolTab.h"
#include "tags/TagsTab.h"
#include "util/UtilTab.h"

namespace zolt {

namespace {

template <class Tab> std::unique_ptr<BaseTab> make()
{
    return std::make_unique<Tab>();
}

} // namespace

const std::vector<TabRow>& tabRows()
{
    static const std::vector<TabRow> rows{
        {Constants::DECODE, make<DecodeTab>},     {Constants::ENCODE, make<EncodeTab>},
        {Constants::CHECKSUM, make<ChecksumTab>}, {Constants::SHNTOOL, make<SHNtoolTab>},
        {Constants::FIX_SBE, make<FixTab>},       {Constants::UTIL, make<UtilTab>},
        {Constants::LOSSY, make<LossyTab>},       {Constants::TAGS, make<TagsTab>},
    };
    return rows;
}

} // namespace zolt
