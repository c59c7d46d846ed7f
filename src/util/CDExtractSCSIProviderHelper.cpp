#include "util/CDExtractSCSIProviderHelper.h"

#include "platform/files/Files.h"

namespace zolt {

OptionalText CDExtractSCSIProviderHelper::runTask() const
{
    if (!bsdName_ || bsdName_->isEmpty() || !exists(path::appendingComponent(drives_, *bsdName_))) return std::nullopt;
    return path::appendingComponent(QStringLiteral("/dev"), *bsdName_);
}

} // namespace zolt
