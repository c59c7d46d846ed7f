// A status of the audio file service as an exception.
#pragma once

#include "platform/audio/AudioStatus.h"
#include "platform/errors/Exceptions.h"

namespace zolt {

/// @throws PlatformException with `what`, a blank and the status as text, unless the status is success
inline void requireStatus(AudioStatus status, const QString& what)
{
    if (status) throw PlatformException(QStringLiteral("Exception"), what + QChar(u' ') + audioStatusText(status));
}

} // namespace zolt
