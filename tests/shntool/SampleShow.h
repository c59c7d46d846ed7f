// Audio files made at test time, and their samples.
#pragma once

#include "support/Programs.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace zolt::test {

using namespace Qt::StringLiterals;

/// A tone of so many frames, its format by the name's extension. @return the path
inline QString tone(const QString& path, int frames, int rate = 44100, int bits = 16, int channels = 2)
{
    int status = -1;
    const QByteArray said = run(u"sox"_s,
                                {u"-D"_s, u"-r"_s, QString::number(rate), u"-n"_s, u"-b"_s, QString::number(bits),
                                 u"-c"_s, QString::number(channels), path, u"synth"_s, QString::number(frames) + u's',
                                 u"sine"_s, QString::number(200 + frames % 300), u"vol"_s, u"0.5"_s},
                                &status);
    EXPECT_EQ(status, 0) << said.toStdString();
    return path;
}

/// The samples of a file, widened to 32 bits.
inline QByteArray samplesOf(const QString& path)
{
    const QString raw = path + u".raw"_s;
    int status = -1;
    const QByteArray said = run(u"sox"_s, {u"-D"_s, path, u"-t"_s, u"s32"_s, raw}, &status);
    EXPECT_EQ(status, 0) << said.toStdString();
    QFile file(raw);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray samples = file.readAll();
    file.remove();
    return samples;
}

} // namespace zolt::test
