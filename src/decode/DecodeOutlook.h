// What pressing the Decode tab's command would do, told before it is pressed.
#pragma once

#include "decode/OutlookDisk.h"
#include "platform/desktop/ToolsDirectory.h"
#include "shell/Wording.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <atomic>

namespace zolt {

/// The list and the choices that stand on the tab.
struct DecodePlan
{
    QStringList files; ///< full paths, in list order
    QString format;    ///< Constants::WAV or Constants::AIFF
    bool besideSource = true;
    bool deleteOriginals = false;
    QList<MissingTool> missingTools; ///< of those that the command needs
};

/// What is known before the start, in words for a person.
struct DecodeOutlook
{
    QString intention;    ///< "23 FLAC files to WAV beside their sources"; empty for an empty list
    QStringList problems; ///< one sentence each, the gravest first
    bool operator==(const DecodeOutlook&) const = default;
};

/// Works the outlook out. Any thread; looks at every file, so a long list belongs on a thread of its own.
/// @param stop  set by another thread to end early; the result is then incomplete and worth nothing
DecodeOutlook decodeOutlook(const DecodePlan& plan, const OutlookDisk& disk, const std::atomic<bool>& stop);

/// Those of the files that the command passes over: nothing in this build decodes them.
QStringList passedOverByDecode(const QStringList& files);

} // namespace zolt
