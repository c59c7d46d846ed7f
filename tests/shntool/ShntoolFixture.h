// What the tests of shntool's tasks share: one task alone, fed with console text.
#pragma once

#include "engine/ZOLTAsyncNSTask.h"
#include "engine/console/ShntoolDialect.h"
#include "platform/desktop/UserDefaults.h"
#include "shell/Constants.h"
#include "shell/DefaultSettings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zolt::test {

using namespace Qt::StringLiterals;

/// Settings of its own, with what the program registers.
class RegisteredSettings
{
public:
    RegisteredSettings()
    {
        UserDefaults::standard().reopen(folder_.filePath(u"settings.ini"_s));
        registerDefaultSettings();
    }
    static void setFormat(const QString& format) { UserDefaults::standard().set(u"shntoolNamesFormat"_s, format); }

private:
    QTemporaryDir folder_;
};

/// The task, for a test that may never queue it: it lets go of its results at the end, as it does behind a queue.
template <class Task> std::shared_ptr<Task> unqueued(const std::shared_ptr<Task>& task)
{
    return {task.get(), [task](Task*) { task->setResults(nullptr); }};
}

/// Hands a task the pieces as they come out of the tool's dialect.
inline void feed(ZOLTAsyncNSTask& task, const QList<QByteArray>& pieces)
{
    ShntoolDialect dialect;
    const auto hand = [&task](const QByteArray& text) {
        if (!text.isEmpty()) task.processTaskOutput(decodeUtf8(text));
    };
    for (const QByteArray& piece : pieces)
        hand(dialect.complete(piece));
    hand(dialect.rest());
}

} // namespace zolt::test
