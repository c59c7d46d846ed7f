// What is on the disc in a drive, without it being mounted.
#pragma once

#include "platform/text/Text.h"

#include <QHash>
#include <QList>

#include <cstdint>

namespace zolt {

/// One entry of a disc's table of contents.
struct DiscTrack
{
    int number = 0; ///< from 1
    bool isData = false;
    bool operator==(const DiscTrack&) const = default;
};

/// The tracks as the drive answers when it is asked for its raw table of contents: two bytes of length (what follows,
/// the high byte first), first and last number, then 8 bytes a track, of which the second holds the kind and the third
/// the number; the lead-out is no track. What is cut or says more than there is gives the whole entries alone.
QList<DiscTrack> tracksOfContents(const QByteArray& answer);

/// The tracks of the disc in a drive. Blocks, as long as a drive takes to spin up; any thread.
/// @param device  "/dev/sr0"
/// @param fault   a sentence for the user, where nothing could be read
QList<DiscTrack> readDiscContents(const QString& device, QString& fault);

/// The titles that stand on the disc, by the track's number: lines such as "T01: 4:05.12 title 'Intro' from ''".
QHash<int, QString> titlesOf(const QString& information);

/// The names that the audio tracks get as files, "1 Intro.wav" or "1 Track 01.wav" without a title.
QStringList trackFileNames(const QList<DiscTrack>& tracks, const QHash<int, QString>& titles);

/// Puts empty files of these names into the drive's folder in the user's cache, in place of what was there.
/// @return their paths; none where that cannot be done
QStringList placeTrackFiles(const QString& drive, const QStringList& names);

/// The folder in which the kernel shows its drives, an entry each; the environment's ZOLT_DRIVES names another.
QString drivesFolder();

/// The drives for discs of this machine, "sr0" first. @param drives  as drivesFolder
QStringList discDrives(const QString& drives = drivesFolder());

} // namespace zolt
