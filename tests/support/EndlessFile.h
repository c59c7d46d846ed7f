// Holds whoever reads a file until the test lets go.
#pragma once

#include <QFile>

#include <gtest/gtest.h>

namespace zolt::test {

/// A hole so long that no test lasts until its end has been read. It takes no room on the disk.
class EndlessFile
{
public:
    explicit EndlessFile(const QString& path) : path_(path)
    {
        constexpr qint64 length = qint64(1) << 40;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(length)) << path.toStdString();
    }
    ~EndlessFile() { end(); }
    EndlessFile(const EndlessFile&) = delete;
    EndlessFile& operator=(const EndlessFile&) = delete;

    /// Cuts it to nothing: a reader meets the end at the next read.
    void end() const { EXPECT_TRUE(QFile::resize(path_, 0)); }

private:
    QString path_;
};

} // namespace zolt::test
