#include "shntool/reading/ShownFile.h"

#include <cerrno>
#include <cstdlib>
#include <new>

#include <unistd.h>

namespace zolt::reading {

namespace {

ssize_t readSome(int descriptor, unsigned char* buffer, std::size_t size)
{
    ssize_t count;
    do
        count = ::read(descriptor, buffer, size);
    while (count < 0 && errno == EINTR);
    return count;
}

bool isPipe(int descriptor)
{
    return ::lseek64(descriptor, 0, SEEK_CUR) < 0;
}

} // namespace

std::FILE* ShownFile::stream(int descriptor)
{
    void* const room = std::malloc(sizeof(ShownFile)); // no C++ library is loaded into the tool
    if (!room) return nullptr;
    ShownFile* const file = ::new (room) ShownFile(descriptor);
    std::FILE* const stream = ::fopencookie(file, "r", {readFrom, nullptr, seekIn, close});
    if (!stream) std::free(room);
    return stream;
}

ssize_t ShownFile::read(unsigned char* buffer, std::size_t size)
{
    const ssize_t count = position_ == 0 ? readAtStart(buffer, size) : readSome(descriptor_, buffer, size);
    if (count <= 0) return count;
    show(buffer, std::size_t(count));
    position_ += count;
    return count;
}

/// A pipe gives its head in pieces, and is waited for here and not at its opening: the tool opens it before it feeds
/// the program at the other end.
ssize_t ShownFile::readAtStart(unsigned char* buffer, std::size_t size)
{
    std::size_t count = 0;
    while (count < size) {
        const ssize_t more = readSome(descriptor_, buffer + count, size - count);
        if (more < 0 && count == 0) return more;
        if (more <= 0) break;
        count += std::size_t(more);
    }
    change_ = plainHeader(buffer, count);
    if (change_ && change_->channels > mostChannels_) mostChannels_ = change_->channels;
    if (!change_ || !isPipe(descriptor_)) return ssize_t(count);
    const std::size_t shorter = shortenHeader(buffer, count);
    if (shorter < count) change_.reset();
    return ssize_t(shorter);
}

void ShownFile::show(unsigned char* buffer, std::size_t size) const
{
    if (!change_) return;
    const off64_t from = off64_t(change_->offset) - position_;
    for (off64_t i = 0; i < 2; ++i)
        if (from + i >= 0 && from + i < off64_t(size)) buffer[from + i] = change_->shown[i];
}

int ShownFile::seek(off64_t* offset, int whence)
{
    const off64_t reached = ::lseek64(descriptor_, *offset, whence);
    if (reached < 0) return -1;
    *offset = position_ = reached;
    return 0;
}

ssize_t ShownFile::readFrom(void* file, char* buffer, std::size_t size)
{
    return static_cast<ShownFile*>(file)->read(reinterpret_cast<unsigned char*>(buffer), size);
}

int ShownFile::seekIn(void* file, off64_t* offset, int whence)
{
    return static_cast<ShownFile*>(file)->seek(offset, whence);
}

int ShownFile::close(void* file)
{
    const int descriptor = static_cast<ShownFile*>(file)->descriptor_;
    std::free(file);
    return ::close(descriptor);
}

} // namespace zolt::reading
