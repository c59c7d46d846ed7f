// Names of files as texts. A name is bytes; nearly always they are UTF-8, and where they are not (old collections have
// such names) no byte is lost on the way to a text and back. Any thread.
#pragma once

#include <QByteArray>
#include <QString>

namespace zolt {

/// The name as text. A byte that is no part of well-formed UTF-8 becomes a character of its own, which stands for
/// nothing else (a lone low surrogate, 0xDC00 and the byte).
QString nameOfBytes(QByteArrayView bytes);

/// The bytes that the name stands for; the way back.
QByteArray bytesOfName(const QString& name);

/// The name for a person to read: such a byte is shown as the letter that it was most likely meant for.
QString readableName(const QString& name);

} // namespace zolt
