// A file or the standard input, read from its beginning to its end.
#pragma once

#include "audio/Bytes.h"

#include <memory>
#include <optional>
#include <string>

#include <sys/stat.h>

namespace zolt::companion {

class ByteSource
{
public:
    /// @param path  "-" for the standard input
    /// @throws Failure (Read) if it cannot be opened
    explicit ByteSource(const std::string& path);
    ~ByteSource();
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// Reads up to `count` bytes; fewer only where the source ends.
    /// @throws Failure (Read)
    std::size_t read(std::uint8_t* to, std::size_t count);

    /// Exactly the next `count` bytes.
    /// @throws Failure (Read), also where the source ends before
    Bytes take(std::size_t count);

    /// Reads over bytes; the end of the source ends it.
    void skip(std::uint64_t count);

    /// The next bytes, at most 64, which stay to be read; fewer where the source ends.
    Bytes peek(std::size_t count);

    /// Bytes read so far.
    std::uint64_t position() const { return position_; }

    /// The length of a regular file; nothing for a pipe.
    std::optional<std::uint64_t> size() const;

    /// How messages call it.
    const std::string& name() const { return name_; }
    bool isStandardInput() const { return standardInput_; }
    const struct stat& identity() const { return identity_; }

private:
    bool fill();

    std::string name_;
    bool standardInput_;
    int descriptor_;
    struct stat identity_ = {};
    Bytes buffer_;
    std::size_t begin_ = 0, end_ = 0;
    std::uint64_t position_ = 0;
};

} // namespace zolt::companion
