#include "audio/Output.h"

#include "audio/Failure.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace zolt::companion {

namespace {

constexpr std::size_t bufferBytes = 256 * 1024;
constexpr std::size_t writtenAtOnce = 64 * 1024; // from here on a copy costs more than a call

bool isSource(const struct stat& file, const ByteSource& source)
{
    const struct stat& other = source.identity();
    return S_ISREG(file.st_mode) && file.st_dev == other.st_dev && file.st_ino == other.st_ino;
}

} // namespace

Output::Output(const std::string& path, const ByteSource& source, Unfinished unfinished)
    : path_(path), name_(path == "-" ? "standard output" : path), standardOutput_(path == "-"), unfinished_(unfinished)
{
    struct stat file = {};
    const bool exists = standardOutput_ ? ::fstat(STDOUT_FILENO, &file) == 0 : ::stat(path.c_str(), &file) == 0;
    if (exists && isSource(file, source)) {
        throw Failure(Fault::Usage, name_ + ": is the source itself; nothing was done");
    }
    descriptor_ =
        standardOutput_ ? STDOUT_FILENO : ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor_ < 0 || ::fstat(descriptor_, &file) != 0) cannotWrite();
    regular_ = S_ISREG(file.st_mode);
    buffer_.reserve(bufferBytes);
}

Output::~Output()
{
    if (finished_) return;
    const bool removed = unfinished_ == Unfinished::Removed && canRewrite();
    [[maybe_unused]] const ssize_t ignored = removed ? 0 : ::write(descriptor_, buffer_.data(), buffer_.size());
    if (!standardOutput_ && descriptor_ >= 0) ::close(descriptor_);
    if (removed) ::unlink(path_.c_str());
}

void Output::cannotWrite() const
{
    throw Failure(Fault::Write, name_ + ": cannot be written: " + std::strerror(errno));
}

void Output::put(const std::uint8_t* bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t put = ::write(descriptor_, bytes, count);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) cannotWrite();
        bytes += put;
        count -= std::size_t(put);
    }
}

void Output::flush()
{
    if (buffer_.empty()) return;
    const Bytes pending = std::move(buffer_);
    buffer_ = {};
    buffer_.reserve(bufferBytes);
    put(pending.data(), pending.size());
}

void Output::write(const std::uint8_t* bytes, std::size_t count)
{
    const bool atOnce = count >= writtenAtOnce;
    if (atOnce || buffer_.size() + count > bufferBytes) flush();
    if (atOnce)
        put(bytes, count);
    else
        buffer_.insert(buffer_.end(), bytes, bytes + count);
    position_ += count;
}

void Output::rewrite(std::uint64_t position, const Bytes& bytes)
{
    flush();
    if (::lseek(descriptor_, off_t(position), SEEK_SET) < 0) cannotWrite();
    put(bytes.data(), bytes.size());
    if (::lseek(descriptor_, 0, SEEK_END) < 0) cannotWrite();
}

void Output::finish()
{
    flush();
    if (!standardOutput_) {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        if (::close(descriptor) != 0) cannotWrite();
    }
    finished_ = true;
}

} // namespace zolt::companion
