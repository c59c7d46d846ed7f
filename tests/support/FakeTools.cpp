#include "support/FakeTools.h"

#include "support/FakeTool.h"

#include <QFile>

namespace zolt::test {

using namespace Qt::StringLiterals;

namespace {

constexpr char endOfArgument = '\1', endOfCall = '\2';

QString quoted(const QString& text)
{
    if (text.startsWith(u'$')) return u'"' + text + u'"';
    return u'\'' + QString(text).replace(u"'"_s, u"'\\''"_s) + u'\'';
}

} // namespace

FakeTools::FakeTools() : former_(qgetenv("ZOLT_TOOLS"))
{
    qputenv("ZOLT_TOOLS", directory_.path().toLocal8Bit());
}

FakeTools::~FakeTools()
{
    former_.isNull() ? qunsetenv("ZOLT_TOOLS") : qputenv("ZOLT_TOOLS", former_);
}

void FakeTools::install(const QString& tool, const QStringList& script)
{
    const QString path = directory_.filePath(tool);
    QString text = u"#!/bin/sh\n{ for a; do printf '%s\\001' \"$a\"; done; printf '\\002'; } >> \"$0.calls\"\nexec "_s +
                   quoted(fakeTool());
    for (const QString& word : script)
        text += u' ' + quoted(word);
    QFile::remove(path); // never through a link: the program behind it is this machine's own
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) qFatal("cannot make %s", qUtf8Printable(path));
    file.write(text.toUtf8() + '\n');
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void FakeTools::installReal(const QString& tool, const QString& program)
{
    if (!QFile::link(program, directory_.filePath(tool))) qFatal("cannot link %s", qUtf8Printable(tool));
}

QList<QStringList> FakeTools::calls(const QString& tool) const
{
    QFile file(directory_.filePath(tool + u".calls"_s));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QList<QStringList> all;
    QStringList call;
    QByteArray word;
    for (const char byte : file.readAll()) {
        if (byte == endOfCall) {
            all += std::exchange(call, {});
        } else if (byte == endOfArgument) {
            call += QString::fromUtf8(std::exchange(word, {}));
        } else {
            word += byte;
        }
    }
    return all;
}

} // namespace zolt::test
