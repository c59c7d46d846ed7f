// Checks the files that an MD5 list names.
#pragma once

#include "checksum/VerifyListTask.h"

namespace zolt {

class VerifyMD5Task : public VerifyListTask
{
public:
    /// @param fileName  full path of the list
    static std::shared_ptr<VerifyMD5Task>
    initWithQueueForFileNameWithResults(ZOLTTaskQueue* queue, const QString& fileName,
                                        const std::shared_ptr<ZOLTTaskResults>& results);

    /// Checks line by line and reports all lines at the end. A cancel is seen before the next line and leaves
    /// "Canceled" as the only line.
    void doCreateMD5();

protected:
    void verifyList() override { doCreateMD5(); }

private:
    VerifyMD5Task();
    QString resultOf(const QString& line) const;
};

} // namespace zolt
