#include "platform/audio/Codecs.h"

#include "platform/desktop/Module.h"

namespace zolt {

using namespace Qt::StringLiterals;

const Codecs* codecs()
{
    static const auto* const opened =
        openModule<Codecs>(u"zolt-codecs.so"_s, QStringLiteral(ZOLT_MODULE_BUILT), "zoltCodecs");
    return opened;
}

} // namespace zolt
