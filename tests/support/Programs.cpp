#include "support/Programs.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace zolt::test {

QByteArray run(const QString& program, const QStringList& arguments, int* status)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit;
    if (status) *status = ended ? process.exitCode() : -1;
    return process.readAll();
}

} // namespace zolt::test
