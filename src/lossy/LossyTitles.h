// The words on the tab's radio buttons. Tasks compare with them, so they stand once.
#pragma once

#include <QString>

namespace zolt::lossyTitle {

inline const QString MP3 = QStringLiteral("LAME MP3");
inline const QString AAC = QStringLiteral("AAC");

inline const QString CBR = QStringLiteral("CBR");
inline const QString ABR = QStringLiteral("ABR");
inline const QString VBR_CONSTRAINED = QStringLiteral("VBR Constrained");
inline const QString VBR = QStringLiteral("VBR");

} // namespace zolt::lossyTitle
