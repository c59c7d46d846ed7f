// Which files hold audio as a CD does, and whether they end on a boundary of its sectors. No tool is run. Any thread.
#pragma once

#include "encode/AudioFormatObject.h"

#include <QString>
#include <QStringList>

#include <atomic>

namespace zolt {

/// 44.1 kHz, 16 bits, stereo: what alone has sectors.
bool isCdAudio(const AudioFormatObject& format);

/// How many bytes of CD audio lie behind the last whole sector; 0 on a boundary.
int bytesOffBoundary(const AudioFormatObject& format);

struct BoundaryWords
{
    QString sentences; ///< names the first few files; for no files, what a sector is
    QString list;      ///< a line for each file off a boundary; empty where the sentences name them all
};

/// Which of the files end off a boundary and by how many bytes, for a person. Reads every file's header.
/// @param stop  set by another thread to end early
BoundaryWords boundariesInWords(const QStringList& files, const std::atomic<bool>& stop);

} // namespace zolt
