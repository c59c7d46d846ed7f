#include "BatchTesting.h"
#include "support/SampleFlac.h"

#include <QDir>
#include <QFile>

#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::Not;

namespace {

/// A run at a terminal: what the program writes and reads goes through a pseudo-terminal of 80 columns.
class BatchTerminal : public BatchTest
{
protected:
    ~BatchTerminal() override
    {
        if (terminal_ >= 0) ::close(terminal_);
    }

    void startAtTerminal(const QStringList& arguments, unsigned short lines = 24)
    {
        std::vector<QByteArray> texts{QByteArray(ZOLT_BATCH)};
        for (const QString& argument : arguments)
            texts.push_back(QFile::encodeName(argument));
        std::vector<char*> pointers;
        for (QByteArray& text : texts)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
        std::vector<QByteArray> variables;
        for (const QString& each : environment.toStringList())
            variables.push_back(each.toLocal8Bit());
        std::vector<char*> environmentPointers;
        for (QByteArray& each : variables)
            environmentPointers.push_back(each.data());
        environmentPointers.push_back(nullptr);
        const QByteArray directory = QFile::encodeName(in({}));
        winsize size = {lines, 80, 0, 0};
        child_ = ::forkpty(&terminal_, nullptr, nullptr, &size);
        if (child_ != 0) return;
        if (::chdir(directory.constData()) == 0) ::execve(pointers[0], pointers.data(), environmentPointers.data());
        ::_exit(99);
    }

    /// Reads until the text has come or the program has closed the terminal. @return all that was read so far
    const std::string& readUntil(const std::string& text)
    {
        char piece[4096];
        while (text.empty() || seen_.find(text) == std::string::npos) {
            const ssize_t count = ::read(terminal_, piece, sizeof piece);
            if (count <= 0) break;
            seen_.append(piece, std::size_t(count));
        }
        return seen_;
    }

    void type(const std::string& text)
    {
        ASSERT_EQ(::write(terminal_, text.data(), text.size()), ssize_t(text.size()));
    }

    int finishStatus()
    {
        readUntil({});
        int status = 0;
        EXPECT_EQ(::waitpid(child_, &status, 0), child_);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    const std::string& seen() const { return seen_; }

private:
    int terminal_ = -1;
    pid_t child_ = -1;
    std::string seen_;
};

constexpr char question[] = "You have chosen to delete the original files.  Are you sure you want to continue? [y/N] ";

} // namespace

TEST_F(BatchTerminal, AsksBeforeItDeletes)
{
    makeFlac(in(u"a.flac"_s));
    startAtTerminal({u"decode"_s, u"--delete-originals"_s, u"a.flac"_s});
    readUntil(question);
    EXPECT_FALSE(QFile::exists(in(u"a.wav"_s)));
    type("y\n");
    EXPECT_EQ(finishStatus(), 0);
    EXPECT_FALSE(QFile::exists(in(u"a.flac"_s)));
    EXPECT_TRUE(QFile::exists(in(u"a.wav"_s)));
}

TEST_F(BatchTerminal, TakesAnythingButYesForNo)
{
    makeFlac(in(u"a.flac"_s));
    startAtTerminal({u"decode"_s, u"--delete-originals"_s, u"a.flac"_s});
    readUntil(question);
    type("\n");
    EXPECT_EQ(finishStatus(), 2);
    EXPECT_TRUE(QFile::exists(in(u"a.flac"_s)));
    EXPECT_FALSE(QFile::exists(in(u"a.wav"_s)));
}

TEST_F(BatchTerminal, CtrlCAtTheQuestionStartsNothing)
{
    makeFlac(in(u"a.flac"_s));
    startAtTerminal({u"decode"_s, u"--delete-originals"_s, u"a.flac"_s});
    readUntil(question);
    type("\x03");
    EXPECT_EQ(finishStatus(), 130);
    EXPECT_TRUE(QFile::exists(in(u"a.flac"_s)));
    EXPECT_FALSE(QFile::exists(in(u"a.wav"_s)));
}

TEST_F(BatchTerminal, ShowsRunningRowsAndClearsThem)
{
    standInForFlac(
        u"echo 'a.flac: 42% complete, ratio=0.5'\nwhile [ ! -e \"$dir/go\" ]; do sleep 0.01; done\nexec \"$real\" \"$@\"\n"_s);
    makeFlac(in(u"a.flac"_s));
    startAtTerminal({u"decode"_s, u"a.flac"_s});
    EXPECT_THAT(readUntil("42%\r\n1 to go\r\n"),
                HasSubstr("[########------------] a.flac  Decoding Flac: 42%\r\n1 to go\r\n"));
    write(in(u"go"_s), {});
    EXPECT_EQ(finishStatus(), 0);
    EXPECT_THAT(seen(), HasSubstr("Complete  a.flac"));
    const std::string afterwards = seen().substr(seen().rfind("Complete"));
    EXPECT_THAT(afterwards, Not(HasSubstr("to go")));
}

TEST_F(BatchTerminal, RunningRowsLeaveALineForTheirCountAndOneForTheCursor)
{
    standInForFlac(u"while [ ! -e \"$dir/go\" ]; do sleep 0.01; done\nexec \"$real\" \"$@\"\n"_s);
    QStringList files;
    for (int file = 0; file < 6; ++file) {
        files += u"%1.flac"_s.arg(file);
        makeFlac(in(files.last()));
    }
    startAtTerminal(QStringList{u"decode"_s, u"--jobs"_s, u"6"_s} + files, 5);
    readUntil("6 to go\r\n");
    const std::string shown = seen().substr(seen().rfind("\x1b[J") + 1); // all of it if it is the first
    EXPECT_EQ(QByteArray::fromStdString(shown).count(".flac  "), 3) << shown;
    write(in(u"go"_s), {});
    EXPECT_EQ(finishStatus(), 0);
}

TEST_F(BatchTerminal, CtrlCReachesTheProgramAlone)
{
    standInForFlac(
        u"touch \"$dir/started\"\nwhile [ ! -e \"$dir/go\" ]; do sleep 0.01; done\nexec \"$real\" \"$@\"\n"_s);
    makeFlac(in(u"a.flac"_s));
    startAtTerminal({u"decode"_s, u"a.flac"_s});
    waitUntil([&] { return QFile::exists(in(u"started"_s)); });
    type("\x03");
    readUntil("Ctrl-C once more");
    write(in(u"go"_s), {});
    EXPECT_EQ(finishStatus(), 130);
    EXPECT_TRUE(contents(in(u"a.wav"_s)).startsWith("RIFF"));
    EXPECT_THAT(seen(), HasSubstr("Canceled  a.flac"));
}
