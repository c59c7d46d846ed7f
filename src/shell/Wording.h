// Lists of things in sentences for a person. Any thread.
#pragma once

#include "platform/text/Counts.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace zolt {

/// "FLAC", "FLAC and SHN", "FLAC, SHN and WV".
QString enumerated(QStringList names);

/// The files by their kinds: "23 FLAC and SHN files". Those without an extension lend no kind.
QString filesInWords(const QStringList& files);

/// "1.5 MB", by thousands.
QString sizeInWords(std::int64_t bytes);

} // namespace zolt
