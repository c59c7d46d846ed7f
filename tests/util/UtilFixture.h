// What the tests of the Util tab share: fake tools ahead of the tab, which looks for its tools when it is made.
#pragma once

#include "engine/OutputWindowController.h"
#include "support/FakeTools.h"
#include "support/TabFixture.h"
#include "util/UtilTab.h"

namespace zolt::test {

class FakeToolsFirst
{
protected:
    FakeTools tools_;
};

class UtilTest : protected FakeToolsFirst, public TabFixture<UtilTab>
{
protected:
    UtilTest() : TabFixture(Constants::UTIL) {}
    ~UtilTest() override
    {
        for (const auto& task : made_)
            task->setResults(nullptr); // one that never ran holds its results, and they hold it
    }
    /// A task that the test made by itself and may never run.
    template <class Task> std::shared_ptr<Task> made(const std::shared_ptr<Task>& task)
    {
        made_.push_back(task);
        return task;
    }
    /// A person's click on a command.
    void choose(const QString& title)
    {
        for (int row = 0; row < tab.commandMatrix->rows(); ++row) {
            if (tab.commandMatrix->cellAt(row, 0).title == title) return tab.commandMatrix->clickCell(row, 0);
        }
        FAIL() << title.toStdString();
    }
    QStringList names() const { return directoryOf(folder()); }
    static QStringList directoryOf(const QString& path) { return QDir(path).entryList(QDir::Files, QDir::Name); }

private:
    std::vector<std::shared_ptr<ZOLTTask>> made_;
};

} // namespace zolt::test
