#include "platform/audio/AudioStatus.h"

#include "platform/Log.h"

extern "C" {
#include <libavutil/error.h>
}

#include <cerrno>
#include <new>

namespace zolt {

namespace {

struct ErrorRow
{
    int error;
    AudioStatus status;
};

constexpr ErrorRow systemErrors[] = {
    {ENOENT, audioStatus::NotFound},    {ENOTDIR, audioStatus::NotFound},   {EACCES, audioStatus::NotPermitted},
    {EPERM, audioStatus::NotPermitted}, {EROFS, audioStatus::NotPermitted}, {EISDIR, audioStatus::NotPermitted},
    {ENOSPC, audioStatus::DiskFull},    {EDQUOT, audioStatus::DiskFull},    {EFBIG, audioStatus::FileTooLarge},
    {ENOMEM, audioStatus::OutOfMemory}, {EINVAL, audioStatus::InvalidFile},
};

constexpr ErrorRow codecErrors[] = {
    {AVERROR_INVALIDDATA, audioStatus::InvalidFile},
    {AVERROR_EOF, audioStatus::InvalidFile},
    {AVERROR_DECODER_NOT_FOUND, audioStatus::UnsupportedFormat},
    {AVERROR_ENCODER_NOT_FOUND, audioStatus::UnsupportedFormat},
    {AVERROR_DEMUXER_NOT_FOUND, audioStatus::UnsupportedFileType},
    {AVERROR_MUXER_NOT_FOUND, audioStatus::UnsupportedFileType},
    {AVERROR_PATCHWELCOME, audioStatus::UnsupportedFormat},
    {AVERROR_STREAM_NOT_FOUND, audioStatus::UnsupportedFormat},
};

template <size_t count> AudioStatus lookUp(const ErrorRow (&rows)[count], int error)
{
    for (const auto& row : rows)
        if (row.error == error) return row.status;
    return audioStatus::Ok;
}

} // namespace

QString audioStatusText(AudioStatus status)
{
    return fourCharText(static_cast<uint32_t>(status));
}

AudioStatus audioStatusFromErrno(int error)
{
    const auto status = lookUp(systemErrors, error);
    return status ? status : audioStatus::InputOutput;
}

AudioStatus audioStatusFromCodecError(int error)
{
    const auto status = lookUp(codecErrors, error);
    return status ? status : audioStatusFromErrno(AVUNERROR(error));
}

AudioStatus audioStatusOfException() noexcept
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return audioStatus::OutOfMemory;
    } catch (const std::exception& fault) {
        qCWarning(platformLog, "audio file service: %s", fault.what());
        return audioStatus::InputOutput;
    }
}

} // namespace zolt
