// Runs the companions of the codecs on files in a folder of their own.
#pragma once

#include "codec/RandomWav.h"

#include <QFile>
#include <QTemporaryDir>

namespace zolt::test {

struct Outcome
{
    int status = -1; ///< -1 where the program did not end by itself
    QByteArray output, errors;
};

class Companions : public testing::Test
{
protected:
    QString in(const QString& name) const { return folder_.filePath(name); }

    /// Runs a companion, with its folder as working directory.
    /// @param input  what it reads from its standard input
    Outcome run(const QString& tool, const QStringList& arguments, const QByteArray& input = {}) const;

    /// Runs a shell script in the folder, in which the tools directory stands first on PATH.
    Outcome shell(const QString& script) const;

    /// Writes a file.
    QString file(const QString& name, const QByteArray& contents) const;
    QByteArray contents(const QString& name) const;
    bool exists(const QString& name) const { return QFile::exists(in(name)); }

    /// What FFmpeg decodes a file to: bare samples of the given form, such as "s16le".
    QByteArray decodedByFfmpeg(const QString& name, const QString& form) const;

    /// Decodes a file to the standard output after each of `count` random flips of one bit: nothing but the samples of
    /// the whole file may come with an exit status of 0.
    /// @param call  the arguments, with "SOURCE" for the file
    void expectFlipsToBeTold(const QString& tool, const QStringList& call, const QByteArray& whole, int count) const;

    Random random_{20};

private:
    QTemporaryDir folder_;
};

/// A file that is not the project's own; absent where the folder beside the checkout is.
std::optional<QByteArray> sharedFixture(const QString& name);

} // namespace zolt::test
