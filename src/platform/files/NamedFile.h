// A file of whatever name.
#pragma once

#include <QFile>

namespace zolt {

/// QFile that opens by the bytes of the name (see FileNames.h): Qt itself only finds names that are UTF-8. Operations
/// that take the name anew, such as exists() or remove(), are those of Files.h instead.
class NamedFile : public QFile
{
public:
    explicit NamedFile(const QString& path) : QFile(path), path_(path) {}
    using QFile::open;
    QString fileName() const override { return path_; }

    /// As QFile's; on failure errno tells why, and so does errorString().
    bool open(OpenMode mode) override;

private:
    const QString path_; ///< QFile forgets it with a descriptor
};

} // namespace zolt
