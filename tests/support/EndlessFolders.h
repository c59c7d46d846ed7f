// A tree of folders that nobody walks to its end.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zolt::test {

/// Each of a dozen folders links to all of them: the ways through are more than a thousand million, with no file.
class EndlessFolders
{
public:
    EndlessFolders()
    {
        constexpr int count = 12;
        for (int number = 0; number < count; ++number)
            EXPECT_TRUE(QDir(path()).mkdir(QString::number(number)));
        for (int from = 0; from < count; ++from) {
            for (int to = 0; to < count; ++to)
                EXPECT_TRUE(QFile::link(folder_.filePath(QString::number(to)),
                                        folder_.filePath(QStringLiteral("%1/%2").arg(from).arg(to))));
        }
    }
    QString path() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
};

} // namespace zolt::test
