// A task that holds one checksum list against the files beside it; each kind of list is a class of its own.
#pragma once

#include "engine/ZOLTThreadTask.h"

namespace zolt {

/// Works on a thread of its own and never fails for a bad file: what it found stands in the results alone, in a report
/// that all lists of one press share. Of a list in which there is nothing to
/// check a fault is noted there.
class VerifyListTask : public ZOLTThreadTask
{
public:
    /// Full path of the list.
    const QString& fileName() const { return fileName_; }
    QString source() const override { return fileName_; }

protected:
    /// The words of one kind of list.
    struct Words
    {
        QString status;  ///< of the row while the list is read, "Verifying MD5 file"
        QString heading; ///< "Verify MD5", before ": " and the list's name
    };

    explicit VerifyListTask(const Words& words);
    void setUpVerification(ZOLTTaskQueue* queue, const QString& fileName,
                           const std::shared_ptr<ZOLTTaskResults>& results);

    /// Reads the list, checks what it names, and appends what it found to the report.
    virtual void verifyList() = 0;
    /// Appends to this task's own slot of the report.
    void report(const QString& text);
    /// Tells whoever sums the report up that this line of it is about a file that is not there.
    void noteMissing(const QString& line) const;
    /// The bar after the entry of that number (from 1) of so many.
    void showProgress(qsizetype entry, qsizetype entries) const;

    void doStartTask() override;

private:
    void noteNothingToCheck(const QString& name) const;

    QString fileName_;
    Words words_;
    bool toldAny_ = false; // anything behind the heading; the task's own thread
};

} // namespace zolt
