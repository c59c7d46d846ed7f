#include "shell/TemporaryFileSteps.h"

#include "platform/errors/Exceptions.h"
#include "support/test.h"

#include <limits>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

/// The reason of the assertion that the work fails with; empty if it does not.
QString failureOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const AssertionException& exception) {
        return exception.reason();
    }
    return QString();
}

} // namespace

TEST(TemporaryFileSteps, TheSessionIsEightDigitsAndTheSameEachTime)
{
    const QString session = sessionIdentifier();
    EXPECT_THAT(session.toStdString(), testing::MatchesRegex("[0-9a-f]{8}"));
    EXPECT_EQ(sessionIdentifier(), session);
}

TEST(TemporaryFileSteps, AProcessThatIsNotThereHasNoSession)
{
    const QString reason = failureOf([] { (void)sessionIdentifier(std::numeric_limits<pid_t>::max()); });
    const QString noSuchProcess(std::initializer_list<QChar>{u'\0', u'\0', u'\0', QChar(ESRCH)}.begin(), 4);
    EXPECT_EQ(reason, u"SessionGetInfo failed: "_s + noSuchProcess);
}

TEST(TemporaryFileSteps, AFileThatCannotBeMadeTellsTheSystemsReason)
{
    QByteArray path("/nonexistent/Zolt-00000000-XXXXXXXX.wav");
    EXPECT_EQ(failureOf([&] { (void)createTemporaryFile(path, 4); }),
              u"Unable to create a temporary file: No such file or directory"_s);
}

TEST(TemporaryFileSteps, APathWithoutPlaceholdersMakesNoFile)
{
    QByteArray path("/tmp/cut-in-the-mid");
    EXPECT_EQ(failureOf([&] { (void)createTemporaryFile(path, 4); }),
              u"Unable to create a temporary file: Invalid argument"_s);
}

TEST(TemporaryFileSteps, AFileThatCannotBeClosedTellsTheSystemsReason)
{
    EXPECT_EQ(failureOf([] { closeTemporaryFile(-1); }), u"Unable to close the temporary file: Bad file descriptor"_s);
}
