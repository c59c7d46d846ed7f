// Rows for programs that read them.
#pragma once

#include "app/batch/RowPrinter.h"

namespace zolt::batch {

/// One JSON object a line for each row: "title", "source", "outputs", "outcome", "milliseconds"; with a report also
/// "report" and what it amounts to: "good", "bad", "missing", "cause".
class JsonRows : public RowPrinter
{
public:
    void ended(const RunRow&) override {}
    void closed(const RunRow& row, const QStringList& outputs) override;

    /// The object, with no line end.
    static QString line(const RunRow& row, const QStringList& outputs);
};

} // namespace zolt::batch
