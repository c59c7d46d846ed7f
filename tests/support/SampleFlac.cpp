#include "support/SampleFlac.h"

#include "support/Programs.h"

#include <QFile>

namespace zolt::test {

using namespace Qt::StringLiterals;

namespace {

void runOrEnd(const QString& tool, const QStringList& arguments)
{
    int status = 0;
    run(tool, arguments, &status);
    if (status != 0) qFatal("%s failed", qUtf8Printable(tool));
}

} // namespace

void makeFlac(const QString& path, double seconds, const QStringList& tags)
{
    runOrEnd(u"sox"_s,
             {u"-q"_s, u"-R"_s, u"-D"_s, u"-r"_s, u"44100"_s, u"-c"_s, u"2"_s, u"-n"_s, u"-b"_s, u"16"_s, u"-t"_s,
              u"flac"_s, path, u"synth"_s, QString::number(seconds), u"noise"_s, u"vol"_s, u"0.5"_s});
    for (const QString& tag : tags)
        runOrEnd(u"metaflac"_s, {u"--set-tag="_s + tag, path});
}

void damage(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)) qFatal("cannot damage %s", qUtf8Printable(path));
    file.seek(file.size() / 2);
    file.write(QByteArray(64, '\0'));
}

} // namespace zolt::test
