// Which drive a folder of track files belongs to. Any thread.
#pragma once

#include "platform/text/Text.h"

namespace zolt {

/// The drive ("sr0") whose disc is mounted at the path, or whose tracks were put into that folder by this program;
/// nothing for any other path, or where
/// what is mounted is no device.
/// @param mountTable  as the kernel shows it: a line a mount, device and place first, blanks in them as "\040"
OptionalText discOfVolume(const QString& path, const QString& mountTable);

/// The kernel's table of mounts as it stands now.
QString mountTable();

/// The folder into which the tracks of a drive's disc are put as empty files, in the user's cache.
QString folderOfDisc(const QString& drive);

/// True for a track file that this program has put there.
bool isInOwnDiscFolder(const QString& file);

/// True for a file of the folder in which desktops show an audio disc that is not mounted: it has no device, and its
/// names cannot be put in order.
bool isInVirtualDiscFolder(const QString& file);

} // namespace zolt
