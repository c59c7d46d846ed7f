#include "platform/images/Pictures.h"

#include "platform/desktop/Module.h"

namespace zolt {

using namespace Qt::StringLiterals;

const Pictures* pictures()
{
    static const auto* const opened =
        openModule<Pictures>(u"zolt-pictures.so"_s, QStringLiteral(ZOLT_MODULE_BUILT), "zoltPictures");
    return opened;
}

} // namespace zolt
