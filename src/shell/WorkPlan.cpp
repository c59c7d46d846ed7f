#include "shell/WorkPlan.h"

#include "platform/text/Text.h"

namespace zolt {

void WorkPlan::setPlaces(bool beside, const OptionalText& destination)
{
    besideSources = beside;
    needsFolder = !beside;
    folder = beside ? QString() : destination.value_or(QString());
}

QString WorkPlan::folderFor(const QString& source) const
{
    return besideSources ? path::deletingLastComponent(source) : folder;
}

QStringList WorkPlan::sources() const
{
    QStringList all;
    for (const WorkItem& item : items)
        all += item.source;
    return all;
}

} // namespace zolt
