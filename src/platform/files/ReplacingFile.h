// New contents of a file, put into place whole.
#pragma once

#include <QByteArray>
#include <QString>

namespace zolt {

/// Written beside the file and renamed over it, so that a reader sees the old contents or the new. Gone without a trace
/// unless it was committed. Nothing here throws; any thread.
class ReplacingFile
{
public:
    /// @param path  of the file that is made or replaced; its rights are kept, a new one has the user's usual ones
    explicit ReplacingFile(const QString& path);
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    /// Appends. @return false if it could not be written whole
    bool write(const QByteArray& bytes);
    /// @return false if the old contents stand
    bool commit();

private:
    const QByteArray path_;
    QByteArray temporary_;
    int descriptor_;
};

} // namespace zolt
