#include "platform/desktop/ToolVersion.h"

#include <QProcess>
#include <QRegularExpression>

namespace zolt {

namespace {

constexpr int patience = 3000; // milliseconds

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
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(path, {question});
        if (!process.waitForFinished(patience)) process.kill();
        process.waitForFinished(patience);
        const QString version = versionIn(QString::fromLatin1(process.readAll()));
        if (!version.isEmpty()) return version;
    }
    return QString();
}

} // namespace zolt
