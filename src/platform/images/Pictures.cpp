#include "platform/images/Pictures.h"

#include "platform/desktop/Module.h"

namespace zolt {

using namespace Qt::StringLiterals;

const Pictures* pictures()
{
    using Entry = const Pictures* (*)();
    static const auto entry =
        reinterpret_cast<Entry>(moduleEntry(u"zolt-pictures.so"_s, QStringLiteral(ZOLT_MODULE_BUILT), "zoltPictures"));
    return entry ? entry() : nullptr;
}

} // namespace zolt
