// Looks for a disc with audio tracks.
#pragma once

#include "util/DiscContents.h"

#include <QStringList>

#include <functional>

namespace zolt {

/// How the contents of a drive's disc are read; as readDiscContents.
using ContentsReader = std::function<QList<DiscTrack>(const QString& device, QString& fault)>;

struct FoundDisc
{
    QString drive;     ///< "sr0"
    QStringList names; ///< that its tracks get as files; none where no drive holds such a disc
    QString fault;     ///< why not, for the user
};

/// Asks one drive after the other, and the first with audio tracks for their titles. Blocks; any thread.
/// @param devices          "/dev/sr0" and so on
/// @param informationTool  path of cdda2wav; where it cannot be started the tracks have no titles
FoundDisc lookForDisc(const QStringList& devices, const QString& informationTool, const ContentsReader& read);

} // namespace zolt
