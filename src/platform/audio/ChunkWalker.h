// Walks the chunks of a RIFF or FORM file: an identifier, a size, a body padded to an even length.
#pragma once

#include "platform/audio/AudioStatus.h"

#include <QByteArray>
#include <QtEndian>

#include <functional>

class QFile;

namespace zolt {

/// Bytes at a place of the file; fewer than `count` at the end.
QByteArray bytesAt(QFile& file, int64_t offset, int64_t count);

/// One chunk of a file.
struct Chunk
{
    uint32_t id = 0;
    uint32_t size = 0;      ///< as stated; may lie
    int64_t bodyOffset = 0; ///< from the file's start
};

/// What a visitor gives to end the walk with success.
constexpr AudioStatus walkDone = -1;

/// Calls `visit` for each chunk behind the twelve bytes of the file's header, until it gives something other than Ok
/// or the chunks end.
/// @param bigEndian  true for FORM files
/// @return what ended the walk, Ok for walkDone; InvalidFile for a file of more chunks than any real one has
AudioStatus walkChunks(QFile& file, bool bigEndian, const std::function<AudioStatus(const Chunk&)>& visit);

} // namespace zolt
