#include "platform/files/TextFile.h"

#include "platform/Log.h"
#include "platform/files/Files.h"
#include "platform/files/NamedFile.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

constexpr qint64 mostBytes = 64 << 20;

/// A text, or why there is none.
struct Try
{
    OptionalText text;
    QString reason;
};

Try failed(const QString& reason)
{
    return {std::nullopt, reason};
}

Try decoded(const QByteArray& bytes, QStringConverter::Encoding encoding, const QString& reason)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() || !text.isValidUtf16() ? failed(reason) : Try{text, {}};
}

Try byMark(const QByteArray& bytes)
{
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (!encoding) return failed(u"The file has no byte-order mark."_s);
    return decoded(bytes, *encoding, u"The text does not fit its byte-order mark."_s);
}

Try asUtf8(const QByteArray& bytes)
{
    return decoded(bytes, QStringConverter::Utf8, u"The text is not UTF-8."_s);
}

Try asAscii(const QByteArray& bytes)
{
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; });
    return isAscii ? Try{QString::fromLatin1(bytes), {}} : failed(u"The text is not ASCII."_s);
}

/// The bytes of the file, handed to one try after the other.
class Opening
{
public:
    explicit Opening(const QString& path) : file_(path) { read(); }

    /// Why there are no bytes; empty where there are.
    const QString& reason() const { return reason_; }
    Try by(Try (*attempt)(const QByteArray&)) const { return reason_.isEmpty() ? attempt(bytes_) : failed(reason_); }

private:
    void read()
    {
        // Looked at before it is opened: a pipe without a writer would hold the caller.
        if (exists(file_.fileName()) && !isRegularFile(file_.fileName()))
            reason_ = u"It is not a file."_s;
        else if (!file_.open(QIODevice::ReadOnly))
            reason_ = file_.errorString();
        else if (file_.size() > mostBytes)
            reason_ = u"The file is too large for a text."_s;
        else
            bytes_ = file_.readAll();
    }

    NamedFile file_;
    QByteArray bytes_;
    QString reason_;
};

void log(const QString& line)
{
    qCWarning(platformLog).noquote() << line;
}

void logUnreadable(const QString& path, UnreadableLine line, const QString& reason)
{
    const QString gap = line == UnreadableLine::PathTextAndReason ? u"  "_s : u" "_s;
    log(u"error "_s + reason);
    log(u"Could not open file..."_s + path + gap + reason);
}

} // namespace

OptionalText readTextInThreeTries(const QString& path, UnreadableLine line)
{
    const Opening file(path);
    Try attempt = file.by(byMark);
    if (attempt.text) return attempt.text;
    log(u"error "_s + attempt.reason);
    log(u"Trying to open as unicode..."_s);
    attempt = file.by(asUtf8);
    if (attempt.text) return attempt.text;
    log(u"error "_s + attempt.reason);
    log(u"Last hope: opening using NSASCIIStringEncoding..."_s);
    attempt = file.by(asAscii);
    if (!attempt.text) logUnreadable(path, line, attempt.reason);
    return attempt.text;
}

QString unreadableTextInWords(const QString& path)
{
    const QString name = path::lastComponent(path), reason = Opening(path).reason();
    return reason.isEmpty() ? u"%1 is not UTF-8; save it as UTF-8"_s.arg(name)
                            : u"%1 cannot be read: %2"_s.arg(name, reason);
}

} // namespace zolt
