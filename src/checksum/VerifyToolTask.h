// A task that has one audio file tested by the tool of its format; each format is a class of its own.
#pragma once

#include "engine/ConsoleGrammar.h"
#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

/// All tests of one press share a report, which holds the tool's words. Only the tool's exit status makes a row fail.
class VerifyToolTask : public ZOLTAsyncNSTask
{
public:
    /// Follows the progress and keeps every piece in the task's slot of the report.
    void processTaskOutput(const OptionalText& output) override;

protected:
    explicit VerifyToolTask(const ConsoleGrammar& grammar) : grammar_(grammar) {}
    /// @param source  which of the arguments is the file
    void setUpVerification(const std::shared_ptr<ZOLTTaskResults>& results, ZOLTTaskQueue* queue,
                           const QString& launchPath, const QStringList& arguments, qsizetype source);
    const ConsoleGrammar& grammar() const { return grammar_; }

private:
    const ConsoleGrammar& grammar_;
};

} // namespace zolt
