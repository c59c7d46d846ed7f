// The status codes of the audio file service. Every operation of it returns one; no exception leaves it.
#pragma once

#include "platform/audio/AudioFormat.h"

namespace zolt {

/// 0 is success; any other value is a four-character code.
using AudioStatus = int32_t;

namespace audioStatus {

consteval AudioStatus code(const char (&text)[5])
{
    return static_cast<AudioStatus>(fourCharCode(text));
}

constexpr AudioStatus Ok = 0;
constexpr AudioStatus NotFound = code("fnf?");            ///< no such file or folder
constexpr AudioStatus NotPermitted = code("prm?");        ///< the system does not let us
constexpr AudioStatus UnsupportedFileType = code("typ?"); ///< not a kind of file that the service knows
constexpr AudioStatus UnsupportedFormat = code("fmt?");   ///< a kind of data that it cannot read, write or convert
constexpr AudioStatus InvalidFile = code("dta?");         ///< the file's contents are damaged or cut off
constexpr AudioStatus InvalidProperty = code("pty?");     ///< the converter has no such setting
constexpr AudioStatus InvalidValue = code("val?");        ///< the setting cannot have that value
constexpr AudioStatus WrongState = code("stt?");          ///< not at this point of the file's life
constexpr AudioStatus FileInUse = code("use!");           ///< the file is open in this program
constexpr AudioStatus FileTooLarge = code("big!");        ///< more data than the kind of file can hold
constexpr AudioStatus DiskFull = code("full");            ///< no room left for the file
constexpr AudioStatus ModuleMissing = code("mod?");       ///< the module that reads and writes compressed audio
constexpr AudioStatus OutOfMemory = code("mem!");
constexpr AudioStatus InputOutput = code("i/o!"); ///< reading or writing failed for another reason

} // namespace audioStatus

/// The status as its four characters; a number where it is none of ours.
QString audioStatusText(AudioStatus status);

/// The status that stands for an errno value; InputOutput for values it does not know.
AudioStatus audioStatusFromErrno(int error);

/// The status that stands for an error code of the codec libraries.
AudioStatus audioStatusFromCodecError(int error);

/// The status that stands for the exception being handled; logs one that is not about memory.
AudioStatus audioStatusOfException() noexcept;

/// Runs an operation of the service and turns what it throws into a status. Takes no memory of its own.
template <typename Work> AudioStatus audioGuarded(const Work& work) noexcept
{
    try {
        return work();
    } catch (...) {
        return audioStatusOfException();
    }
}

} // namespace zolt
