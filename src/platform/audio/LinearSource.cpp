#include "platform/audio/LinearSource.h"

#include <QFile>

#include <cerrno>

namespace zolt {

LinearSource::LinearSource(QFile& file, const LinearLayout& layout)
    : file_(file), layout_(layout), bytesLeft_(layout.frames * layout.format.bytesPerFrame)
{
    format_ = layout.format;
    file_.seek(layout_.dataOffset);
}

AudioStatus LinearSource::lengthInFrames(int64_t& frames)
{
    frames = layout_.frames;
    return audioStatus::Ok;
}

AudioStatus LinearSource::readBytes(uint8_t* buffer, int64_t bytes, int64_t& taken)
{
    taken = 0;
    const int64_t wanted = std::min(bytes, bytesLeft_);
    while (taken < wanted) {
        errno = 0;
        const auto got = file_.read(reinterpret_cast<char*>(buffer) + taken, wanted - taken);
        if (got < 0) return audioStatusFromErrno(errno);
        if (got == 0) return audioStatus::InvalidFile; // someone has cut the file since it was opened
        taken += got;
    }
    bytesLeft_ -= taken;
    return audioStatus::Ok;
}

} // namespace zolt
