#include "platform/audio/Codecs.h"

#include "platform/desktop/Module.h"

namespace zolt {

using namespace Qt::StringLiterals;

const Codecs* codecs()
{
    using Entry = const Codecs* (*)();
    static const auto entry =
        reinterpret_cast<Entry>(moduleEntry(u"zolt-codecs.so"_s, QStringLiteral(ZOLT_MODULE_BUILT), "zoltCodecs"));
    return entry ? entry() : nullptr;
}

} // namespace zolt
