#include "shntool/reading/MarkedText.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace zolt::reading {

namespace {

constexpr off_t longestText = 1 << 20;

/// UTF-16 from its mark on, unit by unit.
struct Units
{
    const unsigned char* bytes;
    std::size_t size;
    bool bigEndian;
    std::size_t at = 2;

    bool left() const { return at + 1 < size; }
    std::uint32_t peek() const
    {
        const unsigned first = bytes[at], second = bytes[at + 1];
        return bigEndian ? first << 8 | second : second << 8 | first;
    }
    std::uint32_t next()
    {
        const std::uint32_t unit = peek();
        at += 2;
        if (unit < 0xd800 || unit >= 0xe000) return unit;
        const bool pair = unit < 0xdc00 && left() && peek() >= 0xdc00 && peek() < 0xe000;
        if (!pair) return 0xfffd;
        const std::uint32_t low = peek();
        at += 2;
        return 0x10000 + ((unit - 0xd800) << 10) + (low - 0xdc00);
    }
};

char* append(char* text, std::uint32_t character)
{
    const int more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned char lead[] = {0x00, 0xc0, 0xe0, 0xf0};
    *text++ = char(lead[more] | character >> (6 * more));
    for (int i = more - 1; i >= 0; --i)
        *text++ = char(0x80 | (character >> (6 * i) & 0x3f));
    return text;
}

bool begins(const unsigned char* bytes, std::size_t size, const char* mark)
{
    const std::size_t length = std::strlen(mark);
    return size >= length && std::memcmp(bytes, mark, length) == 0;
}

std::FILE* streamOver(const char* text, std::size_t size)
{
    std::FILE* const stream = ::fmemopen(nullptr, size + 1, "w+");
    if (!stream) return nullptr;
    std::fwrite(text, 1, size, stream);
    std::rewind(stream);
    return stream;
}

} // namespace

std::size_t unmarked(const unsigned char* bytes, std::size_t size, char* text)
{
    if (begins(bytes, size, "\xef\xbb\xbf")) {
        std::memcpy(text, bytes + 3, size - 3);
        return size - 3;
    }
    const bool bigEndian = begins(bytes, size, "\xfe\xff");
    if (!bigEndian && !begins(bytes, size, "\xff\xfe")) return none;
    char* end = text;
    for (Units units{bytes, size, bigEndian}; units.left();)
        end = append(end, units.next());
    return std::size_t(end - text);
}

std::FILE* markedText(int descriptor)
{
    struct stat file;
    unsigned char mark[3];
    char unused[3];
    if (::fstat(descriptor, &file) != 0 || !S_ISREG(file.st_mode) || file.st_size > longestText) return nullptr;
    const ssize_t start = ::pread(descriptor, mark, sizeof mark, 0);
    if (start <= 0 || unmarked(mark, std::size_t(start), unused) == none) return nullptr;
    const auto size = std::size_t(file.st_size);
    auto* const bytes = static_cast<unsigned char*>(std::malloc(size));
    auto* const text = static_cast<char*>(std::malloc(size * 3 / 2 + 1));
    const bool whole = bytes && text && ::pread(descriptor, bytes, size, 0) == file.st_size;
    std::FILE* const stream = whole ? streamOver(text, unmarked(bytes, size, text)) : nullptr;
    std::free(bytes);
    std::free(text);
    return stream;
}

} // namespace zolt::reading
