// One file through an encoder that takes WAV; AIFF becomes a temporary WAV first.
#pragma once

#include "encode/EncoderTool.h"
#include "encode/StagedWav.h"
#include "engine/DeletingTask.h"

namespace zolt {

/// The family of the Wavpack, TTA and Monkey's Audio encoders; a class of it is a tool, a status line and how its call
/// ends. No tags are written. Any other source than AIFF goes to the tool as it is, which answers for it.
class TwoStageEncoder : public DeletingTask<StagedWav>
{
public:
    /// Both stages. The tool runs on whatever the first left; the temporary file goes whatever happened.
    void doEncodeCall();
    void processTaskOutput(const OptionalText& output) override;
    int stageCount() const override;

protected:
    /// How a class differs from its sisters.
    struct Kind
    {
        const EncoderTool& tool;
        QString status; ///< the first status line
        ToolCall::StopAt stopAt = ToolCall::StopAt::CancelOrError;
        ToolCall::Afterwards afterwards = ToolCall::Afterwards::Nothing;
    };
    explicit TwoStageEncoder(Kind kind) : kind_(std::move(kind)) {}
    /// @param option  as EncoderTool::arguments takes it
    void setUpEncoder(ZOLTTaskQueue* queue, const QString& fileName, const QString& option, const QString& outputPath);

    void doStartTask() override;

private:
    bool hasAiffSource() const;

    const Kind kind_;
    QString option_;
    QString outFile_;
};

} // namespace zolt
