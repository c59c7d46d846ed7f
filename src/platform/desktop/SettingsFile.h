// The file of saved settings, and what may be wrong with it.
#pragma once

#include <QString>
#include <QVariant>

#include <optional>

class QSettings;

namespace zolt::settingsFile {

/// The key by which a later version tells that it has saved the file; this version is 1 and says nothing.
inline const QString versionKey = QStringLiteral("settingsVersion");

/// What a person has to know of the file as it was read; empty if nothing. Any thread.
QString complaintAbout(const QSettings& file);

/// Writes one key, or removes it where there is no value, and leaves the rest of the file as another running program
/// may have set it meanwhile. A file that would lose something by it is copied beside itself first.
/// @return what went wrong, for a person; empty if the key is saved
QString save(const QString& path, const QString& key, const std::optional<QVariant>& value);

} // namespace zolt::settingsFile
