// A pipe between this program, which reads, and a child process, which writes.
#pragma once

#include "platform/process/FileHandle.h"

#include <memory>

namespace zolt {

class Pipe
{
public:
    /// Makes the pipe; neither end is inherited by children. @throws PlatformException if the system gives none
    Pipe();
    ~Pipe();
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    const std::shared_ptr<FileHandle>& fileHandleForReading() const { return reader_; }
    int writeDescriptor() const { return writer_; }
    /// Closes this program's own write end, so that the reader sees the end of file when the last child closes its.
    void closeWriteEnd();

private:
    std::shared_ptr<FileHandle> reader_;
    int writer_ = -1;
};

} // namespace zolt
