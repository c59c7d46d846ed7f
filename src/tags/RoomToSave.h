// Whether a file may grow, asked before the tag library moves its sound.
#pragma once

#include "platform/text/Text.h"

namespace zolt {

/// Why a writer left a file, or a part of the record, out, in words for people; absent if all of it was saved.
using SaveRefusal = OptionalText;

/// Absent if tags of `newBytes` can take the place of `oldBytes` (padding behind the old ones included): they fit, or
/// the disk has room for what is more, and for the padding that the library adds. Else the refusal, which is logged.
///
/// The library makes room for longer tags by moving everything behind them inside the file. Where the disk is full it
/// goes on in silence, and the end of the sound is lost: a file without room is better not saved. Any thread.
SaveRefusal refusalForWantOfRoom(qint64 oldBytes, qint64 newBytes, const QString& path);

/// Saves with `save()`, which tells whether that worked, if there is room.
template <class Save> SaveRefusal saveWithRoom(qint64 oldBytes, qint64 newBytes, const QString& path, const Save& save)
{
    if (SaveRefusal refusal = refusalForWantOfRoom(oldBytes, newBytes, path)) return refusal;
    return save() ? SaveRefusal() : SaveRefusal(QStringLiteral("The tags could not be saved."));
}

} // namespace zolt
