// What is wrong with an MP4 file, or with reading and writing it.
#pragma once

#include "platform/errors/Exceptions.h"

namespace zolt {

/// Thrown by everything in this folder; whoever opens a file turns it into the message that its caller knows.
class Mp4Error : public PlatformException
{
public:
    explicit Mp4Error(QString reason) : PlatformException(QStringLiteral("Mp4Error"), std::move(reason)) {}
};

} // namespace zolt
