#include "platform/desktop/ToolOptions.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>

#include <mutex>

namespace zolt {

namespace {

constexpr int patience = 5000; // milliseconds

bool holdsWord(const QByteArray& text, const QString& word)
{
    const QString around = QStringLiteral("(?<![\\w-])%1(?![\\w-])");
    return QRegularExpression(around.arg(QRegularExpression::escape(word))).match(QString::fromLatin1(text)).hasMatch();
}

/// What tells one state of a tool from another.
QString stateOf(const QString& tool, const QString& option)
{
    const QFileInfo file(QFileInfo(tool).canonicalFilePath());
    return QStringLiteral("%1 %2 %3 %4")
        .arg(file.filePath())
        .arg(file.size())
        .arg(file.lastModified().toMSecsSinceEpoch())
        .arg(option);
}

} // namespace

QByteArray toolAnswer(const QString& tool, const QStringList& question)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(tool, question);
    if (!process.waitForFinished(patience)) process.kill();
    process.waitForFinished(patience);
    return process.readAll();
}

bool knowsOption(const QString& tool, const QStringList& question, const QString& option)
{
    static std::mutex mutex; // held while a tool runs: who asks at the same time wants the same answer
    static QHash<QString, bool> known;
    const QString state = stateOf(tool, option);
    const std::lock_guard guard(mutex);
    if (!known.contains(state)) known.insert(state, holdsWord(toolAnswer(tool, question), option));
    return known.value(state);
}

} // namespace zolt
