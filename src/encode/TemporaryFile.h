// A temporary file that goes with the scope that asked for it.
#pragma once

#include "platform/files/Files.h"

#include <utility>

namespace zolt {

/// Removes the file however the scope is left; an empty path stands for none.
class TemporaryFile
{
public:
    explicit TemporaryFile(QString path) : path_(std::move(path)) {}
    ~TemporaryFile()
    {
        if (!path_.isEmpty()) removeItem(path_);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const QString& path() const { return path_; }
    /// Leaves the file to the caller. @return its path
    QString release() { return std::exchange(path_, QString()); }

private:
    QString path_;
};

} // namespace zolt
