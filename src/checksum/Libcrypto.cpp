#include "checksum/Libcrypto.h"

#include "platform/errors/Exceptions.h"

#include <openssl/opensslv.h>

#include <dlfcn.h>

namespace zolt {

namespace {

#define ZOLT_TEXT_OF(number) #number
#define ZOLT_SONAME(version) "libcrypto.so." ZOLT_TEXT_OF(version)
constexpr const char* soname = ZOLT_SONAME(OPENSSL_SHLIB_VERSION);

template <class Function> void take(void* library, const char* name, Function& function)
{
    function = library ? reinterpret_cast<Function>(::dlsym(library, name)) : nullptr;
    if (!function) throw PlatformException(QStringLiteral("LibraryException"), QString::fromLocal8Bit(::dlerror()));
}

Libcrypto opened()
{
    void* const library = ::dlopen(soname, RTLD_LAZY | RTLD_LOCAL);
    Libcrypto functions;
    take(library, "MD5_Init", functions.MD5_Init);
    take(library, "MD5_Update", functions.MD5_Update);
    take(library, "MD5_Final", functions.MD5_Final);
    return functions;
}

} // namespace

const Libcrypto& libcrypto()
{
    static const Libcrypto functions = opened();
    return functions;
}

} // namespace zolt
