// A regular file that is read and written at given positions, with every short read or write an error.
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

namespace zolt {

/// Owns the descriptor. One thread at a time. All operations @throw Mp4Error with the path and the system's text.
class RandomAccessFile
{
public:
    enum class Mode {
        Read,   ///< as it is, never written
        Update, ///< as it is, for writing
        Create  ///< emptied, or made with access for the owner alone
    };

    /// Opens the file. Directories, pipes and devices are refused.
    RandomAccessFile(const QString& path, Mode mode);
    ~RandomAccessFile();
    RandomAccessFile(const RandomAccessFile&) = delete;
    RandomAccessFile& operator=(const RandomAccessFile&) = delete;

    /// As it was opened.
    const QString& path() const { return path_; }

    /// Bytes in the file now.
    quint64 size() const;

    /// Exactly `length` bytes from `position` on.
    QByteArray read(quint64 position, quint64 length) const;

    void write(quint64 position, const QByteArray& bytes);

    /// Copies `length` bytes from another file in pieces of fixed size, inside the kernel where it can.
    void copyFrom(const RandomAccessFile& source, quint64 sourcePosition, quint64 length, quint64 position);

    /// Cuts the file or fills it up with zeros.
    void resize(quint64 size);

    /// Makes the file at least so long, with room on the disk for all of it; leaves it as it is where there is none.
    void grow(quint64 size);

    /// Returns when the bytes are on the disk.
    void flush();

    /// Gives this file the other one's owner, group, access bits and extended attributes, as far as the user may.
    void takeAttributes(const RandomAccessFile& other);

    /// True if the file stands in more than one place of the disk.
    bool hasOtherNames() const;

private:
    struct stat facts() const;
    void takeExtendedAttributes(const RandomAccessFile& other, bool ofAccess);
    [[noreturn]] void fail(const char* operation) const;
    quint64 copyInKernel(const RandomAccessFile& source, quint64 sourcePosition, quint64 length, quint64 position);
    quint64 copyThroughBuffer(const RandomAccessFile& source, quint64 sourcePosition, quint64 length, quint64 position);

    const QString path_;
    const int descriptor_;
};

} // namespace zolt
