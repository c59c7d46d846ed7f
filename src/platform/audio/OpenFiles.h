// Which files the service has open, so that no conversion ever writes over its own or another one's source.
#pragma once

#include "platform/audio/AudioStatus.h"

#include <memory>

namespace zolt {

/// Stands for one file that the service has open; the file counts as open until this is gone. Any thread.
class OpenFileMark
{
public:
    /// Marks a file by what it is on the disk, so that links and other spellings of its path count as well.
    /// @param path of a file that is open
    explicit OpenFileMark(const QString& path);
    ~OpenFileMark();
    OpenFileMark(const OpenFileMark&) = delete;
    OpenFileMark& operator=(const OpenFileMark&) = delete;

    /// True if the file at the path is open in this service, for reading or for writing.
    static bool isMarked(const QString& path);

private:
    std::pair<uint64_t, uint64_t> identity_;
};

} // namespace zolt
