#include "ui/pages/TabPage.h"

#include "platform/desktop/Panels.h"
#include "platform/desktop/ToolsDirectory.h"

namespace zolt {

using namespace Qt::StringLiterals;

bool TabPage::toolsAreThere(const QStringList& tools)
{
    QStringList told;
    for (const MissingTool& tool : missingTools(tools))
        told += missingToolMessage(tool);
    if (told.isEmpty()) return true;
    panels().runAlert(told.size() == 1 ? u"A tool is missing"_s : u"Tools are missing"_s,
                      told.join(u"\n\n"_s) + u"\n\nNothing was started; the list stays as it is."_s, u"OK"_s);
    return false;
}

} // namespace zolt
