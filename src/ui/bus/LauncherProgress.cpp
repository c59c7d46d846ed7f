#include "ui/bus/LauncherProgress.h"

#include "ui/bus/LauncherUpdate.h"

namespace zolt {

using namespace Qt::StringLiterals;

void LauncherProgress::tell(double part, bool visible)
{
    sendLauncherUpdate(session_, {{u"progress"_s, part}, {u"progress-visible"_s, visible}});
}

} // namespace zolt
