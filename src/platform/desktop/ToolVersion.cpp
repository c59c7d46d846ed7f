#include "platform/desktop/ToolVersion.h"

#include "platform/desktop/ToolOptions.h"

#include <QRegularExpression>

namespace zolt {

namespace {

QString versionIn(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("\\b\\d+(?:\\.\\d+)+[a-z]?\\d*\\b"));
    return number.match(text.section(u'\n', 0, 4)).captured();
}

} // namespace

QString toolVersion(const QString& path)
{
    // shntool alone knows the short form only.
    for (const QString& question : {QStringLiteral("--version"), QStringLiteral("-v")}) {
        const QString version = versionIn(QString::fromLatin1(toolAnswer(path, {question})));
        if (!version.isEmpty()) return version;
    }
    return QString();
}

} // namespace zolt
