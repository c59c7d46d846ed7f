// The MD5 functions of libcrypto.
#pragma once

#include <openssl/md5.h>

namespace zolt {

/// Their names are the library's own.
struct Libcrypto
{
    decltype(&::MD5_Init) MD5_Init;
    decltype(&::MD5_Update) MD5_Update;
    decltype(&::MD5_Final) MD5_Final;
};

/// The library is opened by the first call and stays open: linked, it would double the time that every command needs to
/// start. Any thread.
/// @throws PlatformException if it cannot be opened
const Libcrypto& libcrypto();

} // namespace zolt
