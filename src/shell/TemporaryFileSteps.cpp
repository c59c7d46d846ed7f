#include "shell/TemporaryFileSteps.h"

#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"

#include <QDir>
#include <QRandomGenerator>

#include <cerrno>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view placeholders = "XXXXXXXX";

[[noreturn]] void fail(const QString& reason)
{
    throw AssertionException(reason);
}

void requireParameter(bool holds, const QString& condition)
{
    if (!holds) fail(u"Invalid parameter not satisfying: "_s + condition);
}

QString systemText(int error)
{
    return QString::fromStdString(std::generic_category().message(error));
}

/// The status as the four characters that its bytes stand for, the highest first.
QString fourCharacters(int status)
{
    QString characters;
    for (int shift = 24; shift >= 0; shift -= 8)
        characters += QChar(char16_t((status >> shift) & 0xFF));
    return characters;
}

OptionalText temporaryDirectory()
{
    const QString directory = QDir::tempPath();
    return isDirectory(directory) ? OptionalText(directory) : std::nullopt;
}

/// mkstemps of this system replaces the last six X's only; the ones ahead of them are replaced here.
void replaceFirstPlaceholders(QByteArray& path, qsizetype suffixLength)
{
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    constexpr qsizetype replacedBySystem = 6;
    // By position: the directory or the extension may hold the same letters. A path cut off has none to replace.
    const qsizetype start = path.size() - suffixLength - qsizetype(placeholders.size());
    if (start < 0 || !path.sliced(start).startsWith(QByteArrayView(placeholders.data(), placeholders.size()))) return;
    for (qsizetype at = start; at < start + qsizetype(placeholders.size()) - replacedBySystem; ++at) {
        path[at] = letters[QRandomGenerator::global()->bounded(quint32(letters.size()))];
    }
}

} // namespace

QString sessionIdentifier(pid_t process)
{
    const pid_t session = getsid(process);
    if (session < 0) fail(u"SessionGetInfo failed: "_s + fourCharacters(errno));
    return u"%1"_s.arg(quint32(session), 8, 16, QChar(u'0'));
}

QString temporaryFileTemplate(const OptionalText& directory, const OptionalText& extension)
{
    const OptionalText folder = directory ? directory : temporaryDirectory();
    requireParameter(folder.has_value(), u"nil != directory"_s);
    requireParameter(extension.has_value(), u"nil != extension"_s);
    return *folder + u"/Zolt-"_s + sessionIdentifier() + u'-' +
           QLatin1StringView(placeholders.data(), qsizetype(placeholders.size())) + u'.' + *extension;
}

int createTemporaryFile(QByteArray& path, int suffixLength)
{
    replaceFirstPlaceholders(path, suffixLength);
    const int descriptor = mkostemps(path.data(), suffixLength, O_CLOEXEC);
    if (descriptor < 0) fail(u"Unable to create a temporary file: "_s + systemText(errno));
    return descriptor;
}

void closeTemporaryFile(int descriptor)
{
    if (close(descriptor) != 0) fail(u"Unable to close the temporary file: "_s + systemText(errno));
}

} // namespace zolt
