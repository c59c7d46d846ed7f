#include "support/FakeTool.h"

#include <QFile>

namespace zolt::test {

void touch(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) qFatal("cannot make %s", qUtf8Printable(path));
}

} // namespace zolt::test
