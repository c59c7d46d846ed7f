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

    /// Marks a file that is going to be written, and makes it first where there is none; what it holds stays. Of two
    /// that come at the same time only one gets it. Never waits, not even for the reader of a pipe.
    /// @param mark empty before; set on success alone; it tells whether the file was made
    /// @return FileInUse if the service has the file open, for reading or for writing
    static AudioStatus claim(const QString& path, std::unique_ptr<OpenFileMark>& mark);

    /// True if there was no such file before the claim.
    bool hasMade() const { return made_; }

private:
    using Identity = std::pair<uint64_t, uint64_t>; ///< device and file number
    struct Registry;
    OpenFileMark(const Identity& identity, const std::lock_guard<std::mutex>& held);
    static Registry& registry();

    Identity identity_;
    bool made_ = false;
};

} // namespace zolt
