// Whether a file may grow, asked before the tag library moves its sound.
#pragma once

#include <QString>

namespace zolt {

/// True if the file may grow by that many bytes of tags, with a little more for the padding that the library adds.
///
/// The library makes room for longer tags by moving everything behind them inside the file. Where the disk is full it
/// goes on in silence, and the end of the sound is lost: a file without room is better not saved. Logged if false.
/// Any thread.
bool hasRoomFor(quint64 tagBytes, const QString& path);

} // namespace zolt
