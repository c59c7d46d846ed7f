// How files of each kind are decoded: one table for what is run, for what is told before and for the tools.
#pragma once

#include "shell/WorkPlan.h"

#include <memory>

namespace zolt {

class DecodeTab;
class ZOLTTask;

/// One file to be decoded.
struct DecodeJob
{
    const DecodeTab& tab;
    QString file;
    QString folder; ///< where its output goes
    QString format; ///< Constants::WAV or Constants::AIFF
};

/// One row.
struct Decoder
{
    QString extension; ///< of the source, in upper case
    QStringList tools;
    QStringList toolsForAiff; ///< besides
    WorkItem::Existing existingWav, existingAiff;
    bool tellsFailure; ///< false where the task does not look at its tool's end: its source goes in any case
    /// @throws AssertionException where a temporary file is needed and cannot be made
    std::shared_ptr<ZOLTTask> (*task)(const DecodeJob& job);

    WorkItem::Existing existing(const QString& format) const;
    /// Where the output of a source goes.
    QString output(const QString& file, const QString& folder, const QString& format) const;
};

/// The row for a file, by its extension; none for one that is skipped.
const Decoder* decoderOf(const QString& file);

} // namespace zolt
