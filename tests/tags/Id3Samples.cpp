#include "tags/Id3Samples.h"

namespace zolt::test {

QByteArray synchsafe(qsizetype number)
{
    QByteArray bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes += static_cast<char>((number >> shift) & 0x7f);
    return bytes;
}

QByteArray id3Frame(const char* name, const QByteArray& body, const QByteArray& flags)
{
    return name + synchsafe(body.size()) + flags + body;
}

QByteArray id3Tag(const QByteArray& frames)
{
    return QByteArray("ID3\4\0\0", 6) + synchsafe(frames.size()) + frames;
}

QByteArray compressedId3Frame(const char* name, const QByteArray& body)
{
    // Qt puts the length ahead of the stream.
    return id3Frame(name, synchsafe(body.size()) + qCompress(body, 9).sliced(4), QByteArray("\0\x09", 2));
}

} // namespace zolt::test
