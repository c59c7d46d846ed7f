#include "regex/ConversionBuffers.h"

#include <cstdlib>
#include <new>

namespace zolt {

bool ConversionBuffer::holds(RegexText subject, std::size_t subjectHash) const
{
    return string.text().isPresent() && string.text().isSame(subject) && hash == subjectHash &&
           length == subject.length();
}

void ConversionBuffer::clear()
{
    string.drop();
    hash = 0;
    length = 0;
}

ConversionBuffers::ConversionBuffers()
{
    for (std::size_t way = 0; way < count; ++way)
        fixed_.buffers[way].uniChar = fixedUnits_[way].data();
}

ConversionBuffers::~ConversionBuffers()
{
    for (ConversionBuffer& buffer : dynamic_.buffers)
        std::free(buffer.uniChar);
}

ConversionBuffers::Filled ConversionBuffers::bufferFor(RegexText subject, std::size_t hash)
{
    const bool isShort = subject.length() < fixedUnits;
    Group& group = isShort ? fixed_ : dynamic_;
    const auto known = std::find_if(group.buffers.begin(), group.buffers.end(),
                                    [&](const ConversionBuffer& buffer) { return buffer.holds(subject, hash); });
    const bool isNew = known == group.buffers.end();
    const int way = isNew ? group.cacheSet.victim() : static_cast<int>(known - group.buffers.begin());
    ConversionBuffer& buffer = group.buffers[static_cast<std::size_t>(way)];
    if (isNew) {
        buffer.clear();
        if (!isShort) grow(buffer, subject.length());
        subject.copyUnits(buffer.uniChar);
        buffer.string.keep(subject);
        buffer.hash = hash;
        buffer.length = subject.length();
    }
    group.cacheSet.touch(way);
    return {&buffer, isNew};
}

void ConversionBuffers::grow(ConversionBuffer& buffer, qsizetype length)
{
    void* room = std::realloc(buffer.uniChar, static_cast<std::size_t>(length) * sizeof(char16_t));
    if (!room) throw std::bad_alloc();
    buffer.uniChar = static_cast<char16_t*>(room);
}

} // namespace zolt
