// What takes a run of tag writing back.
#pragma once

#include "tags/KeptBytes.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zolt {

/// Knows of a run's files all bytes but their sound, and puts them back. Main thread.
class TagUndo
{
public:
    /// @param folder  where bytes are kept until the next run or the end of the program; made when it is needed
    explicit TagUndo(QString folder);
    ~TagUndo();

    /// Forgets the last run.
    void clear();
    /// Keeps a file that is going to be written; once each. @return false if it cannot be kept, which is logged
    bool keep(const QString& path);
    /// The file has been written, or was tried to be.
    void written(const QString& path);
    /// Whether there is anything to put back.
    bool canUndo() const;

    /// What undo() did.
    struct Outcome
    {
        struct File
        {
            QString path;
            QString reason;
        };
        qsizetype asked = 0;
        QStringList putBack;
        QList<File> leftAlone;

        /// "11 of 12 files put back. b.flac: It was changed since, and is left as it is."
        QString sentence() const;
    };
    /// Gives every file that was changed the very bytes that it had, unless somebody else has changed it since. What
    /// could not be written can be tried again; of all others nothing is known any more. Throws nothing.
    /// @param between  called before each file
    Outcome undo(const std::function<void()>& between);

private:
    struct File;

    const QString folder_;
    std::unique_ptr<KeptBytes> bytes_; ///< none while nothing is kept
    std::vector<File> files_;
    QHash<QString, std::size_t> places_; ///< of the kept files in the list, by path
};

} // namespace zolt
