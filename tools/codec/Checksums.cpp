#include "codec/Checksums.h"

#include <new>

extern "C" {
#include <libavutil/crc.h>
#include <libavutil/md5.h>
#include <libavutil/mem.h>
}

namespace zolt::companion {

std::uint32_t crc32(const std::uint8_t* bytes, std::size_t count)
{
    return ~av_crc(av_crc_get_table(AV_CRC_32_IEEE_LE), ~0u, bytes, count);
}

void Md5::Free::operator()(AVMD5* state) const
{
    av_free(state);
}

Md5::Md5() : state_(av_md5_alloc())
{
    if (!state_) throw std::bad_alloc();
    av_md5_init(state_.get());
}

void Md5::add(const Bytes& bytes)
{
    av_md5_update(state_.get(), bytes.data(), bytes.size());
}

Md5::Sum Md5::sum()
{
    Sum sum;
    av_md5_final(state_.get(), sum.data());
    return sum;
}

} // namespace zolt::companion
