// Checks the FLAC files that a fingerprint list names: first what they carry, then, of those that match, their audio.
#pragma once

#include "checksum/VerifyListTask.h"

namespace zolt {

class VerifyFFPTask : public VerifyListTask
{
public:
    /// @param fileName  full path of the list
    static std::shared_ptr<VerifyFFPTask>
    initWithQueueForFileNameWithResults(ZOLTTaskQueue* queue, const QString& fileName,
                                        const std::shared_ptr<ZOLTTaskResults>& results);

    QString description() const override { return fileName(); }
    /// Follows one piece of flac's test of a file. @return the piece, trimmed
    /// @throws RangeException for a piece with a percent sign and no ", "
    QString processFlacFileOutputForFile(const OptionalText& output, const QString& name) const;
    /// Has flac decode each file and reports its closing words. Neither status nor cancel is looked at.
    void verifyFlacFilesSync(const QStringList& files);
    /// The line that stands in a list for the file.
    static QString fingerprint(const QString& path);
    /// Holds the list against what the files carry.
    /// @return the full paths of those that match, sorted; nothing where the list has no text, which is a failure
    /// @throws RangeException for an entry without a colon
    std::optional<QStringList> doVerifyFPP();

protected:
    void verifyList() override;

private:
    /// A line of the list.
    struct Entry
    {
        QString name, digest;
    };

    VerifyFFPTask();
    static Entry entryOf(const QString& line);
    QString resultOf(const Entry& entry, QStringList& matches) const;
};

} // namespace zolt
