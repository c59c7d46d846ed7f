// The checksums that compressed files carry.
#pragma once

#include "audio/Bytes.h"

#include <array>
#include <memory>

struct AVMD5;

namespace zolt::companion {

/// The CRC that zip files use too.
std::uint32_t crc32(const std::uint8_t* bytes, std::size_t count);

class Md5
{
public:
    using Sum = std::array<std::uint8_t, 16>;

    Md5();
    void add(const Bytes& bytes);
    Sum sum(); ///< Once, at the end.

private:
    struct Free
    {
        void operator()(AVMD5* state) const;
    };
    std::unique_ptr<AVMD5, Free> state_;
};

} // namespace zolt::companion
