#include "checksum/MD5Helper.h"

#include "checksum/Libcrypto.h"
#include "platform/files/FileNames.h"

#include <QByteArray>

#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace zolt {

namespace {

constexpr std::size_t blockSize = 1048576; // bytes

/// A file open for reading from its start to its end; nothing to read where it cannot be opened.
class Source
{
public:
    // Not blocking: a pipe without a writer reads as empty instead of holding the thread for ever.
    explicit Source(const QString& path)
        : descriptor_(::open(bytesOfName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
        if (descriptor_ >= 0) ::posix_fadvise(descriptor_, 0, 0, POSIX_FADV_SEQUENTIAL);
    }
    ~Source()
    {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    /// @return how many bytes were read; 0 at the end and where reading fails
    std::size_t read(unsigned char* block) const
    {
        ssize_t count = -1;
        do {
            count = ::read(descriptor_, block, blockSize);
        } while (count < 0 && errno == EINTR);
        return count > 0 ? std::size_t(count) : 0;
    }

private:
    int descriptor_;
};

} // namespace

QString MD5Helper::getMD5FromFile(const QString& path)
{
    const Source source(path);
    const auto block = std::make_unique_for_overwrite<unsigned char[]>(blockSize);
    const Libcrypto& crypto = libcrypto();
    MD5_CTX context;
    crypto.MD5_Init(&context);
    while (const std::size_t count = source.read(block.get()))
        crypto.MD5_Update(&context, block.get(), count);
    QByteArray digest(MD5_DIGEST_LENGTH, Qt::Uninitialized);
    crypto.MD5_Final(reinterpret_cast<unsigned char*>(digest.data()), &context);
    return QString::fromLatin1(digest.toHex());
}

} // namespace zolt
