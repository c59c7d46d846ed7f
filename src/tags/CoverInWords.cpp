#include "tags/CoverInWords.h"

#include "shell/Wording.h"

using namespace Qt::StringLiterals;

namespace zolt {

QString coverInWords(const Image& cover)
{
    const QString size = u"%1 × %2"_s.arg(cover.shown().pixelsWide()).arg(cover.shown().pixelsHigh());
    const ImageFile& file = cover.file();
    return file.kind.isEmpty() ? size : QStringList{file.kind, size, sizeInWords(file.size)}.join(u", "_s);
}

} // namespace zolt
