// Finds the device by which the extraction tool knows a drive.
#pragma once

#include "platform/text/Text.h"
#include "util/DiscContents.h"

namespace zolt {

/// Any thread.
class CDExtractSCSIProviderHelper
{
public:
    /// @param bsdName  the drive's name, such as "sr0"; none for a disc that is in no drive
    /// @param drives   the folder in which the kernel shows its drives, an entry each
    static CDExtractSCSIProviderHelper initWithBSDName(const OptionalText& bsdName,
                                                       const QString& drives = drivesFolder())
    {
        return {bsdName, drives};
    }

    /// The block device of the drive, "/dev/sr0"; nothing if there is no such drive.
    OptionalText runTask() const;

private:
    CDExtractSCSIProviderHelper(const OptionalText& bsdName, const QString& drives) : bsdName_(bsdName), drives_(drives)
    {
    }

    const OptionalText bsdName_;
    const QString drives_;
};

} // namespace zolt
