// Runs zolt-batch on files of a folder of its own.
#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace zolt::test {

/// What a finished run left.
struct BatchOutcome
{
    int status = -1;
    QStringList rows; ///< lines of standard output before the first report
    QString output;   ///< all of standard output
    QString errors;   ///< standard error
};

class BatchTest : public testing::Test
{
protected:
    BatchTest();

    QString in(const QString& name) const { return folder_.filePath(name); }
    QByteArray contents(const QString& path) const;
    void write(const QString& path, const QByteArray& bytes) const;

    /// Makes the tools directory one with these tools of the system alone.
    void useTools(const QStringList& names);
    /// Puts a shell script in the place of a tool; "$real" is the real one, "$dir" the test's folder.
    void standInFor(const QString& tool, const QString& script);
    /// The same for flac, with metaflac beside it and no other tool.
    void standInForFlac(const QString& script);

    /// Starts the program with its working directory in the test's folder and no terminal.
    std::unique_ptr<QProcess> start(const QStringList& arguments);
    /// Waits for its end.
    BatchOutcome finish(QProcess& process) const;
    BatchOutcome run(const QStringList& arguments);
    /// Waits until it holds; fails the test where the program ends before or nothing comes.
    void waitUntil(const std::function<bool()>& condition) const;

    QProcessEnvironment environment;
    QStringList launcher; ///< the command that starts the program, which is put behind it; none for the program itself

private:
    QTemporaryDir folder_;
};

} // namespace zolt::test
