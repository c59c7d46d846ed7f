#include "audio/ByteSource.h"

#include "audio/Failure.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace zolt::companion {

namespace {

constexpr std::size_t bufferBytes = 256 * 1024;

[[noreturn]] void cannotRead(const std::string& name)
{
    throw Failure(Fault::Read, name + ": cannot be read: " + std::strerror(errno));
}

} // namespace

ByteSource::ByteSource(const std::string& path)
    : name_(path == "-" ? "standard input" : path), standardInput_(path == "-"),
      descriptor_(standardInput_ ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)), buffer_(bufferBytes)
{
    if (descriptor_ < 0 || ::fstat(descriptor_, &identity_) != 0) cannotRead(name_);
}

ByteSource::~ByteSource()
{
    if (!standardInput_) ::close(descriptor_);
}

bool ByteSource::fill()
{
    if (begin_ == end_) begin_ = end_ = 0;
    ssize_t got;
    do
        got = ::read(descriptor_, buffer_.data() + end_, buffer_.size() - end_);
    while (got < 0 && errno == EINTR);
    if (got < 0) cannotRead(name_);
    end_ += std::size_t(got);
    return got > 0;
}

std::size_t ByteSource::read(std::uint8_t* to, std::size_t count)
{
    std::size_t done = 0;
    while (done < count && (begin_ < end_ || fill())) {
        const std::size_t part = std::min(count - done, end_ - begin_);
        std::memcpy(to + done, buffer_.data() + begin_, part);
        begin_ += part;
        done += part;
    }
    position_ += done;
    return done;
}

Bytes ByteSource::take(std::size_t count)
{
    Bytes bytes;
    while (bytes.size() < count) { // in parts, as a damaged count is no reason to ask for all that memory
        const std::size_t before = bytes.size(), part = std::min<std::size_t>(count - before, 1 << 20);
        bytes.resize(before + part);
        if (read(bytes.data() + before, part) < part) {
            throw Failure(Fault::Read, name_ + ": ends too early: the file is cut");
        }
    }
    return bytes;
}

void ByteSource::skip(std::uint64_t count)
{
    while (count > 0 && (begin_ < end_ || fill())) {
        const std::uint64_t part = std::min<std::uint64_t>(count, end_ - begin_);
        begin_ += std::size_t(part);
        position_ += part;
        count -= part;
    }
}

Bytes ByteSource::peek(std::size_t count)
{
    if (begin_ > 0 && end_ - begin_ < count) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
    }
    while (end_ - begin_ < count && fill())
        continue;
    const auto from = buffer_.begin() + std::ptrdiff_t(begin_);
    return Bytes(from, from + std::ptrdiff_t(std::min(count, end_ - begin_)));
}

std::optional<std::uint64_t> ByteSource::size() const
{
    if (!S_ISREG(identity_.st_mode)) return std::nullopt;
    return std::uint64_t(identity_.st_size);
}

} // namespace zolt::companion
