// Checks the files that an ST5 list names, hashing each anew with shntool.
#pragma once

#include "checksum/VerifyListTask.h"

namespace zolt {

class VerifyST5Task : public VerifyListTask
{
public:
    /// @param fileName  full path of the list
    static std::shared_ptr<VerifyST5Task>
    initWithQueueForFileNameWithResults(ZOLTTaskQueue* queue, const QString& fileName,
                                        const std::shared_ptr<ZOLTTaskResults>& results);

    /// Follows one piece of shntool's text, and adds what it says of the file to the line that is being rebuilt.
    void processTaskOutput(const OptionalText& output) override;
    /// The list's line for a file, rebuilt with its bare name; a warning in its place.
    QString st5(const QString& path);
    /// Holds each entry against its line rebuilt; all that is found is reported at the end. A cancel is not looked at.
    /// @throws RangeException for an entry without the separator
    void doCreateST5();

protected:
    void verifyList() override { doCreateST5(); }

private:
    VerifyST5Task();
    QString resultOf(const QString& entry);

    QString name_; // of the file at work, and its line so far; the task's own thread
    QString rebuilt_;
};

} // namespace zolt
