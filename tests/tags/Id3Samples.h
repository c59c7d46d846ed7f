// Bytes of ID3v2 tags, version 2.4.
#pragma once

#include <QByteArray>

namespace zolt::test {

/// A number in four bytes of seven bits.
QByteArray synchsafe(qsizetype number);
QByteArray id3Frame(const char* name, const QByteArray& body, const QByteArray& flags = QByteArray(2, '\0'));
QByteArray id3Tag(const QByteArray& frames);
/// A frame of that name whose body is compressed.
QByteArray compressedId3Frame(const char* name, const QByteArray& body);

} // namespace zolt::test
