#include "decode/FlacDecodeProgress.h"

namespace zolt {

ConsoleProgress flacDecodeProgress(const QString& text)
{
    if (!text.contains(QLatin1String("% "))) return {};
    const QString behindName = pieceAt(splitAt(text, QStringLiteral(": ")), 1);
    const QString number = pieceAt(splitAt(behindName, QStringLiteral("%")), 0);
    return {doubleValue(number), number};
}

} // namespace zolt
