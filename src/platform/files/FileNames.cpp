#include "platform/files/FileNames.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace zolt {

namespace {

constexpr char16_t escape = 0xDC00;

bool isEscape(QChar character)
{
    return character >= QChar(escape + 0x80) && character <= QChar(escape + 0xFF);
}

/// The bytes as text, a byte-order mark included; nothing where they are not well-formed.
std::optional<QString> wellFormed(QByteArrayView bytes)
{
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

/// How many bytes a character that starts so should have; 1 too where none starts so.
qsizetype lengthBehind(char lead)
{
    const auto byte = uchar(lead);
    return byte < 0xC2 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// True for the second half of a pair: what looks like an escape there is none.
bool isPaired(const QString& name, qsizetype at)
{
    return at > 0 && name[at - 1].isHighSurrogate();
}

} // namespace

QString nameOfBytes(QByteArrayView bytes)
{
    if (const auto whole = wellFormed(bytes)) return *whole;
    QString name;
    while (!bytes.empty()) {
        const qsizetype length = std::min(lengthBehind(bytes.front()), bytes.size());
        const auto character = wellFormed(bytes.first(length));
        name += character ? *character : QString(QChar(escape + uchar(bytes.front())));
        bytes = bytes.sliced(character ? length : 1);
    }
    return name;
}

QByteArray bytesOfName(const QString& name)
{
    if (std::none_of(name.begin(), name.end(), isEscape)) return name.toUtf8();
    QByteArray bytes;
    qsizetype taken = 0; // of the name
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (!isEscape(name[at]) || isPaired(name, at)) continue;
        bytes += QStringView(name).sliced(taken, at - taken).toUtf8();
        bytes += char(name[at].unicode() - escape);
        taken = at + 1;
    }
    return bytes + QStringView(name).sliced(taken).toUtf8();
}

QString readableName(const QString& name)
{
    QString shown = name;
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (isEscape(name[at]) && !isPaired(name, at)) shown[at] = QChar::fromLatin1(char(name[at].unicode() - escape));
    }
    return shown;
}

} // namespace zolt
