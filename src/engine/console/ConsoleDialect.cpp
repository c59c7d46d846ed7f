#include "engine/console/ConsoleDialect.h"

#include "engine/console/FlacDialect.h"
#include "platform/text/Text.h"

namespace zolt {

std::unique_ptr<ConsoleDialect> dialectFor(const QString& launchPath, const QStringList& arguments)
{
    if (path::lastComponent(launchPath) == u"flac") return FlacDialect::forArguments(arguments);
    return std::make_unique<ConsoleDialect>();
}

} // namespace zolt
