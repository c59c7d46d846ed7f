#include "platform/process/Pipe.h"

#include "platform/errors/Exceptions.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace zolt {

Pipe::Pipe()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        throw PlatformException(QStringLiteral("FileHandleOperationException"),
                                QStringLiteral("cannot make a pipe: ") + QString::fromLocal8Bit(std::strerror(errno)));
    }
    reader_ = std::make_shared<FileHandle>(ends[0]);
    writer_ = ends[1];
}

Pipe::~Pipe()
{
    closeWriteEnd();
}

void Pipe::closeWriteEnd()
{
    if (writer_ >= 0) ::close(writer_);
    writer_ = -1;
}

} // namespace zolt
