// What is given to a run, and what of it cannot be worked on.
#pragma once

#include "app/batch/BatchOptions.h"

namespace zolt {

class BaseTab;

namespace batch {

/// The paths as the tabs know them: absolute, without pieces that lead nowhere.
QStringList absolutePaths(const QStringList& given);

/// A sentence for the user about a path that cannot be read; empty for one that can.
QString faultOf(const QString& path);

/// Gives the files and folders to the tab's own intake, then takes from its list what would not be worked on.
class InputFiles
{
public:
    InputFiles(BaseTab& tab, const BatchOptions& options) : tab_(tab), options_(options) {}

    /// @return a sentence for the user about each input that is left out
    QStringList enter();
    /// How many files of folders are left out because the command is for other kinds: nobody asked for just these.
    qsizetype otherKinds() const { return otherKinds_; }

private:
    QStringList enterReadable();
    void removeRepeated();
    QStringList removeUnhandled();
    QString otherKind(const QString& file) const;

    BaseTab& tab_;
    const BatchOptions& options_;
    qsizetype otherKinds_ = 0;
};

} // namespace batch
} // namespace zolt
