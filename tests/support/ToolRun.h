// What the tests of families of tasks share whose classes differ by the tool they run.
#pragma once

#include "support/TaskRun.h"

namespace zolt::test {

/// @tparam Row  a class of the family: its `tool`, `firstStatus`, a piece `progress` with 42 in it and the `status`
///              that comes of it, and how often a piece is `kept`
template <class Row> class ToolRun : public TaskRun, public testing::WithParamInterface<Row>
{
protected:
    const Row& row() const { return this->GetParam(); }
    void install(const QStringList& script) { tools_.install(row().tool, script); }

    void expectRowFollowsTheTool(const std::shared_ptr<ZOLTTask>& task, const QString& title)
    {
        const QString go = path(QStringLiteral("go")), on = path(QStringLiteral("on"));
        const QString waits = QStringLiteral("wait-file");
        install({waits, go, QStringLiteral("out"), row().progress, waits, on});
        EXPECT_EQ(task->title(), title);
        EXPECT_EQ(task->textField()->stringValue(), title);
        queue_.addTask(task);
        ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == row().firstStatus; }));
        touch(go);
        ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == row().status; }));
        EXPECT_EQ(task->progressIndicator()->doubleValue(), 42);
        touch(on);
        settle();
    }

    /// @param make    makes a task on that source
    /// @param source  a name in the folder
    template <class Make> void expectGoodEndToOpenNoWindowAndToDeleteTheSourceIfAsked(Make make, const QString& source)
    {
        install({QStringLiteral("out"), QStringLiteral("fine")});
        run(make());
        EXPECT_TRUE(exists(source));
        const auto task = make();
        task->setDeleteOriginal(true);
        run(task);
        EXPECT_FALSE(exists(source));
        EXPECT_TRUE(queue_.outputWindows().empty());
    }

    /// Cancels a task whose tool has more to say than a pipe holds and then makes the file "ended".
    void cancelAtTheTool(const std::shared_ptr<ZOLTTask>& task)
    {
        install({QStringLiteral("wait-file"), path(QStringLiteral("go")), QStringLiteral("flood"),
                 QStringLiteral("300000"), QStringLiteral("touch"), path(QStringLiteral("ended"))});
        cancelAt(task, row().firstStatus);
        EXPECT_EQ(task->textField()->stringValue(), QStringLiteral("Canceled"));
        EXPECT_TRUE(queue_.outputWindows().empty());
    }

    /// No tool is installed.
    void expectMissingToolToLeaveNothingBut(const QString& source, const std::shared_ptr<ZOLTTask>& task)
    {
        const LogCapture log;
        EXPECT_TRUE(run(task)->error());
        EXPECT_TRUE(onlyReport().contains(row().tool));
        EXPECT_EQ(othersThan({source}), QStringList());
    }
};

} // namespace zolt::test
