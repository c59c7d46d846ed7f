// What a run shows of its tasks.
#pragma once

#include "engine/Run.h"

namespace zolt {

namespace batch {

/// "Complete  NAME", "Error  NAME" or "Canceled  NAME", on one line, with no line end; of a row that has ended.
QString outcomeLine(const RunRow& row);

/// Main thread.
class RowPrinter
{
public:
    virtual ~RowPrinter() = default;
    virtual void added(const RunRow&) {}
    virtual void ended(const RunRow& row) = 0;
    /// Nothing more comes of the row. @param outputs  that its source was to become, as full paths
    virtual void closed(const RunRow&, const QStringList& /*outputs*/) {}
    /// A message for the user, on standard error.
    virtual void note(const QString& text);
    /// Nothing more comes of any.
    virtual void finish() {}
};

/// One line for each ended task; for output that nobody watches.
class LineRows : public RowPrinter
{
public:
    void ended(const RunRow& row) override;
};

} // namespace batch
} // namespace zolt
