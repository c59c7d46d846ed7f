#include "ui/ViewChoices.h"

#include "platform/desktop/UserDefaults.h"

namespace zolt::viewChoices {

namespace {

const QString queueKey = QStringLiteral("view.keepQueueInFront");
const QString reportsKey = QStringLiteral("view.gatherReports");

} // namespace

bool keepsQueueInFront()
{
    return !UserDefaults::standard().objectForKey(queueKey) || UserDefaults::standard().boolForKey(queueKey);
}

void setKeepsQueueInFront(bool keeps)
{
    UserDefaults::standard().set(queueKey, keeps);
}

bool gathersReports()
{
    return UserDefaults::standard().boolForKey(reportsKey);
}

void setGathersReports(bool gathers)
{
    UserDefaults::standard().set(reportsKey, gathers);
}

} // namespace zolt::viewChoices
