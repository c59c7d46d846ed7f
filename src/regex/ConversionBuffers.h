// Where the UTF-16 of subjects lies that do not give out their own.
#pragma once

#include "regex/KeptText.h"
#include "regex/LruState.h"

#include <array>

namespace zolt {

/// The UTF-16 of one subject.
struct ConversionBuffer
{
    KeptText string; ///< the subject, held so that no other can get its identity; no text while the buffer is free
    std::size_t hash = 0;
    qsizetype length = 0;
    char16_t* uniChar = nullptr; ///< stays when the buffer is cleared

    bool holds(RegexText subject, std::size_t subjectHash) const;
    /// Lets go of the subject.
    void clear();
};

/// Four buffers of a fixed size for short subjects, four that grow for all others; the one used longest ago is given
/// up. Guarded by the cache's lock.
class ConversionBuffers
{
public:
    static constexpr std::size_t count = LruState::ways;
    /// The size of a fixed buffer; a subject must be shorter.
    static constexpr qsizetype fixedUnits = 2048;
    using Buffers = std::array<ConversionBuffer, count>;

    ConversionBuffers();
    ~ConversionBuffers();
    ConversionBuffers(const ConversionBuffers&) = delete;
    ConversionBuffers& operator=(const ConversionBuffers&) = delete;

    struct Filled
    {
        ConversionBuffer* buffer;
        bool isNew; ///< the characters were copied just now
    };
    /// The buffer with the subject's characters: one that has them already, else the one given up for them.
    /// @throws std::bad_alloc
    Filled bufferFor(RegexText subject, std::size_t hash);

    const Buffers& rkl_lruFixedBuffer() const { return fixed_.buffers; }
    const Buffers& rkl_lruDynamicBuffer() const { return dynamic_.buffers; }
    LruState rkl_lruFixedBufferCacheSet() const { return fixed_.cacheSet; }
    LruState rkl_lruDynamicBufferCacheSet() const { return dynamic_.cacheSet; }

private:
    struct Group
    {
        Buffers buffers;
        LruState cacheSet;
    };
    static void grow(ConversionBuffer& buffer, qsizetype length);

    std::array<std::array<char16_t, fixedUnits>, count> fixedUnits_;
    Group fixed_;
    Group dynamic_;
};

} // namespace zolt
