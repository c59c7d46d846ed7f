// What a run shows of its tasks.
#pragma once

#include <QString>

#include <memory>

namespace zolt {

class ZOLTTask;

namespace batch {

/// How a task ended.
enum class Outcome { Complete, Error, Canceled };

/// As the task's row shows it.
Outcome outcomeOf(const ZOLTTask& task);

/// "Complete  NAME", "Error  NAME" or "Canceled  NAME", on one line, with no line end.
QString outcomeLine(Outcome outcome, const QString& title);

/// Main thread.
class RowPrinter
{
public:
    virtual ~RowPrinter() = default;
    virtual void added(const std::shared_ptr<ZOLTTask>&) {}
    virtual void ended(const std::shared_ptr<ZOLTTask>& task, Outcome outcome) = 0;
    /// A message for the user, on standard error.
    virtual void note(const QString& text);
    /// Nothing more comes.
    virtual void finish() {}
};

/// One line for each ended task; for output that nobody watches.
class LineRows : public RowPrinter
{
public:
    void ended(const std::shared_ptr<ZOLTTask>& task, Outcome outcome) override;
};

} // namespace batch
} // namespace zolt
