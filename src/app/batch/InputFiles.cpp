#include "app/batch/InputFiles.h"

#include "app/batch/Console.h"
#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "shell/BaseTab.h"

#include <QFile>
#include <QSet>

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace zolt::batch {

using namespace Qt::StringLiterals;

QStringList absolutePaths(const QStringList& given)
{
    QStringList paths;
    for (const QString& each : given)
        paths.append(absolutePath(each));
    return paths;
}

QString faultOf(const QString& path)
{
    const bool readable = ::access(bytesOfName(path).constData(), R_OK) == 0;
    if (readable) return {};
    return onOneLine(path) + u": "_s + QString::fromLocal8Bit(std::strerror(errno));
}

QStringList InputFiles::enter()
{
    QStringList leftOut = enterReadable();
    removeRepeated();
    return leftOut + removeUnhandled();
}

QStringList InputFiles::enterReadable()
{
    QStringList leftOut, readable;
    for (const QString& path : options_.files) {
        const QString fault = faultOf(path);
        if (fault.isEmpty())
            readable.append(path);
        else
            leftOut.append(fault);
    }
    tab_.addFiles(readable);
    tab_.waitForFiles();
    const QStringList files = tab_.fileNames().copy();
    const QSet<QString> listed(files.begin(), files.end());
    for (const QString& path : readable) {
        // What the tab took and put out again it has told itself.
        if (listed.contains(path) || isDirectory(path) || (files.isEmpty() && tab_.isValid(path))) continue;
        leftOut.append(otherKind(path));
    }
    return leftOut;
}

void InputFiles::removeRepeated()
{
    const QStringList files = tab_.fileNames().copy(); // sorted: what is repeated stands side by side
    QList<qsizetype> rows;
    for (qsizetype row = 1; row < files.size(); ++row) {
        if (files[row] == files[row - 1]) rows.append(row);
    }
    if (!rows.isEmpty()) tab_.removeRows(rows);
}

QString InputFiles::otherKind(const QString& file) const
{
    return u"%1: %2 does not take files of this kind"_s.arg(onOneLine(file), options_.command);
}

QStringList InputFiles::removeUnhandled()
{
    const WorkPlan plan = tab_.workPlan();
    const QSet<qsizetype> passedOver(plan.passedOver.begin(), plan.passedOver.end());
    const QSet<QString> given(options_.files.begin(), options_.files.end());
    QStringList leftOut;
    QList<qsizetype> rows;
    for (qsizetype row = 0; row < plan.files.size(); ++row) {
        const QString& file = plan.files[row];
        const QString fault = faultOf(file); // of what a walk has found
        if (fault.isEmpty() && !passedOver.contains(row)) continue;
        rows.append(row);
        if (!fault.isEmpty())
            leftOut.append(fault);
        else if (given.contains(file))
            leftOut.append(otherKind(file));
        else
            ++otherKinds_;
    }
    if (!rows.isEmpty()) tab_.removeRows(rows);
    return leftOut;
}

} // namespace zolt::batch
