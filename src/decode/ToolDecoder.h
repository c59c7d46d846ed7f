// One file through a decoder that writes WAV; for AIFF that WAV is a temporary one.
#pragma once

#include "encode/StagedWav.h"
#include "encode/TemporaryFile.h"
#include "engine/DeletingTask.h"

namespace zolt {

/// The family of the Wavpack, TTA and Monkey's Audio decoders; a class of it is a Kind.
class ToolDecoder : public DeletingTask<StagedWav>
{
public:
    /// The tool, then for AIFF the conversion of whatever it left. The temporary file goes whatever happened.
    void doDecodeCall();
    void processTaskOutput(const OptionalText& output) override;
    int stageCount() const override { return toAiff_ ? 2 : 1; }
    /// The file that the tool writes.
    const QString& outFile() const { return outFile_; }

protected:
    /// How a class differs from its sisters.
    struct Kind
    {
        QString tool;
        /// @param replaces  the output stands there already
        QStringList (*arguments)(const QString& source, const QString& output, bool replaces);
        const ConsoleGrammar& grammar;
        QString status; ///< the first status line
        ThreadEnd end = {};
        ToolCall::Afterwards afterwards = ToolCall::Afterwards::Nothing;
    };
    explicit ToolDecoder(const Kind& kind) : DeletingTask<StagedWav>(kind.end), kind_(kind) {}
    /// @param format  Constants::WAV or Constants::AIFF
    /// @throws AssertionException if the temporary file cannot be made
    void setUpDecoder(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath, const QString& format);

    void doStartTask() override;
    /// The step behind the row's end: deletes the source after success if asked to.
    virtual void endSource() { deleteSource(fileName()); }

private:
    void makeTemporary();

    const Kind kind_;
    bool toAiff_ = false;
    QString outFile_;
    std::unique_ptr<TemporaryFile> temporary_; ///< goes with a task that never ran, too
};

} // namespace zolt
