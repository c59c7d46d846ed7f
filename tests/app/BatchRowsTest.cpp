#include "app/batch/Console.h"
#include "app/batch/LiveRows.h"
#include "engine/ZOLTTask.h"

#include <clocale>

using namespace zolt;
using namespace zolt::batch;
using namespace Qt::StringLiterals;

namespace {

/// A task that is never queued: nobody breaks the ring between it and its results but this.
class LooseTask
{
public:
    ~LooseTask() { task_->setResults(nullptr); }
    ZOLTTask* operator->() const { return task_.get(); }
    ZOLTTask& operator*() const { return *task_; }

private:
    std::shared_ptr<ZOLTTask> task_ = ZOLTTask::initWithQueue(nullptr);
};

} // namespace

TEST(BatchRows, ControlCharactersNeverLeaveTheirLine)
{
    EXPECT_EQ(onOneLine(u"a\nb\r\tc\x1b[2J"_s), u"a\\nb\\r\\tc\\x1b[2J"_s);
    EXPECT_EQ(onOneLine(u"\u2028\u0085"_s), u"\\x2028\\x85"_s);
    EXPECT_EQ(onOneLine(u"Ω 日本 \"x\" %"_s), u"Ω 日本 \"x\" %"_s);
}

TEST(BatchRows, ALineHoldsOutcomeAndName)
{
    const auto line = [](Outcome outcome, const QString& title) {
        return outcomeLine({.title = title, .outcome = outcome});
    };
    EXPECT_EQ(line(Outcome::Complete, u"a.flac"_s), u"Complete  a.flac"_s);
    EXPECT_EQ(line(Outcome::Failed, u"a\nb.flac"_s), u"Error  a\\nb.flac"_s);
    EXPECT_EQ(line(Outcome::Canceled, u"a.flac"_s), u"Canceled  a.flac"_s);
}

TEST(BatchRows, ARunningRowHasBarNameAndStatus)
{
    const LooseTask task;
    task->setTitle(u"a.flac"_s);
    task->topTextField()->setStringValue(u"Decoding Flac: 50%"_s);
    task->progressIndicator()->setDoubleValue(50);
    EXPECT_EQ(LiveRows::runningLine(*task, 80), u"[##########----------] a.flac  Decoding Flac: 50%"_s);
    task->progressIndicator()->setDoubleValue(-1);
    EXPECT_EQ(LiveRows::runningLine(*task, 30), u"[--------------------] a.flac"_s);
}

TEST(BatchRows, TextIsCutByColumnsNotByCharacters)
{
    EXPECT_EQ(LiveRows::cutTo(u"abcdef"_s, 4), u"abc"_s);
    EXPECT_EQ(LiveRows::cutTo(u"日本語"_s, 6), u"日本"_s);
}

TEST(BatchRows, ColumnsAreThoseOfUnicodeUnderAnyLocale)
{
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(LiveRows::cutTo(u"日本語"_s, 6), u"日本"_s);
    std::setlocale(LC_CTYPE, before.c_str());
}
