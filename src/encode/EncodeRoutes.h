// The ways from a kind of source to a target: one table for what is run, for what is told before and for the tools.
#pragma once

#include "shell/WorkPlan.h"

#include <memory>

namespace zolt {

class EncodeTab;
class ZOLTTask;
class ZOLTTaskResults;

/// One file on its way.
struct EncodeJob
{
    const EncodeTab& tab;
    QString file;
    QString folder;                           ///< where its output goes
    std::shared_ptr<ZOLTTaskResults> results; ///< shared by all Shorten tasks of a command
};

/// One row; the first that fits a source counts.
struct EncodeRoute
{
    /// What its task makes of a source that is to be deleted.
    enum class Deletion {
        Impossible, ///< it cannot, and says so
        AsSet,      ///< it is gone, or in the trash
        ForGood     ///< it never goes to the trash
    };

    QString target;      ///< a constant of the formats
    QStringList sources; ///< extensions in upper case; empty for any
    QStringList tools;
    bool readsBySHNTool; ///< which runs a tool of the source's kind in turn
    bool staged;         ///< through a temporary WAV in the output folder
    WorkItem::Existing existing;
    Deletion deletion;
    std::shared_ptr<ZOLTTask> (*task)(const EncodeJob& job);

    /// Where the output of a source goes.
    QString output(const QString& file, const QString& folder) const;
};

/// The way of a source to a target; none for a target that is none.
const EncodeRoute* encodeRoute(const QString& target, const QString& sourceType);

/// All tools that the way needs for such a source.
QStringList toolsOf(const EncodeRoute& route, const QString& sourceType);

/// A sentence for a person on a source that the way's tool will decline; empty for one that it takes.
QString declinedInWords(const QString& target, const QString& sourceType);

} // namespace zolt
