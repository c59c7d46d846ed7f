// The MD5 of its audio that a FLAC file carries, as a line of a fingerprint list.
#pragma once

#include <QString>

namespace zolt {

/// The name that a list gets where nobody chooses one.
inline const QString fingerprintListName = QStringLiteral("fingerprint.ffp.txt");

/// What metaflac prints where it cannot read a file.
inline constexpr QLatin1String metaflacFailure("FLAC__METADATA_CHAIN");

/// Reads the value with metaflac; blocks. Any thread.
/// @return "NAME:DIGITS" with the line end of the tool, or the tool's message as it stands if it failed
/// @throws PlatformException if the tool cannot be started
QString flacFingerprint(const QString& path);

} // namespace zolt
