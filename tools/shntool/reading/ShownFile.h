// A file or pipe as shntool is to see it.
#pragma once

#include "shntool/reading/PlainHeader.h"

#include <cstdio>

#include <sys/types.h>

namespace zolt::reading {

/// Reads a descriptor of its own, with the head shown plain. Lives as long as the stream made of it.
class ShownFile
{
public:
    /// @return a stream for reading that owns the descriptor; null, the descriptor still open, if memory is short
    static std::FILE* stream(int descriptor);

    /// The most channels that a WAV shown plain has had so far in this process.
    static unsigned mostChannels() { return mostChannels_; }

private:
    explicit ShownFile(int descriptor) : descriptor_(descriptor) {}

    ssize_t read(unsigned char* buffer, std::size_t size);
    ssize_t readAtStart(unsigned char* buffer, std::size_t size);
    void show(unsigned char* buffer, std::size_t size) const;
    int seek(off64_t* offset, int whence);

    static ssize_t readFrom(void* file, char* buffer, std::size_t size);
    static int seekIn(void* file, off64_t* offset, int whence);
    static int close(void* file);

    static inline unsigned mostChannels_ = 0;
    int descriptor_;
    off64_t position_ = 0;
    std::optional<Change> change_; ///< known from the first read on
};

} // namespace zolt::reading
