// What a companion writes: a file or the standard output.
#pragma once

#include "audio/ByteSource.h"

namespace zolt::companion {

/// What becomes of a file whose writing was not finished.
enum class Unfinished {
    Kept,   ///< decoders: what could be saved of a damaged source
    Removed ///< encoders: nothing that might pass for whole
};

class Output
{
public:
    /// An existing file is overwritten; one that is the source itself is refused before it is touched.
    /// @param path    "-" for the standard output
    /// @param source  what is read meanwhile
    /// @throws Failure (Write, or Usage where it is the source)
    Output(const std::string& path, const ByteSource& source, Unfinished unfinished);
    /// Handles a file that was not finished as told.
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// @throws Failure (Write)
    void write(const std::uint8_t* bytes, std::size_t count);
    void write(const Bytes& bytes) { write(bytes.data(), bytes.size()); }

    /// Replaces bytes that were written before. Only for what can be sought.
    /// @throws Failure (Write)
    void rewrite(std::uint64_t position, const Bytes& bytes);

    /// Whether rewrite() works: a regular file that is not the standard output.
    bool canRewrite() const { return regular_ && !standardOutput_; }

    /// Bytes written so far.
    std::uint64_t position() const { return position_; }

    /// Ends the writing; what the disk tells only now counts too.
    /// @throws Failure (Write)
    void finish();

private:
    void flush();
    void put(const std::uint8_t* bytes, std::size_t count);
    [[noreturn]] void cannotWrite() const;

    std::string path_, name_;
    bool standardOutput_, regular_ = false, finished_ = false;
    Unfinished unfinished_;
    int descriptor_ = -1;
    Bytes buffer_;
    std::uint64_t position_ = 0;
};

} // namespace zolt::companion
