// The MD5 digest of a file.
#pragma once

#include <QString>

namespace zolt {

class MD5Helper
{
public:
    /// Takes a file of any size block by block; the caller waits.
    /// @return 32 lower-case hexadecimal digits. Kept: what cannot be opened or read counts as empty, so a missing file
    ///         has the digest of nothing. Any thread.
    static QString getMD5FromFile(const QString& path);
};

} // namespace zolt
