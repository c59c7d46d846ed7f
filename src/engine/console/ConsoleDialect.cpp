#include "engine/console/ConsoleDialect.h"

#include "engine/console/FlacDialect.h"
#include "engine/console/ShntoolDialect.h"
#include "platform/text/Text.h"

namespace zolt {

std::unique_ptr<ConsoleDialect> dialectFor(const QString& launchPath, const QStringList& arguments)
{
    const QString tool = path::lastComponent(launchPath);
    if (tool == u"flac") return FlacDialect::forArguments(arguments);
    if (tool == u"shntool") return std::make_unique<ShntoolDialect>();
    return std::make_unique<ConsoleDialect>();
}

} // namespace zolt
