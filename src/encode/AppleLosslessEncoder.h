// One Apple Lossless file through a command-line encoder: decoded to a temporary WAV first, its tags copied last.
#pragma once

#include "encode/EncoderTool.h"
#include "encode/StagedWav.h"

namespace zolt {

class TagsObject;

/// The family of the four that take Apple Lossless to FLAC, Wavpack, TTA and Monkey's Audio; a class of it is a tool,
/// its words and its writer of tags. Kept: they cannot delete their source, and say so when they are told to.
class AppleLosslessEncoder : public StagedWav
{
public:
    /// Both stages; the tool runs on whatever the first left. The temporary file goes whatever happened.
    void doEncodeCall();
    void processTaskOutput(const OptionalText& output) override;
    /// The source's tags. @throws AssertionException if it does not open
    std::shared_ptr<TagsObject> getALACTags() const;
    /// Keeps the text of a failure alone, and copies the tags whatever the outcome, once the tool has run: what stands
    /// at the output before that is none of this task's.
    void cleanup() override;
    int stageCount() const override { return 2; }

protected:
    /// How a class differs from its sisters.
    struct Kind
    {
        const EncoderTool& tool;
        QString status;    ///< the first status line
        QString tagStatus; ///< shown while tags are written
        /// Tells why the tags were not saved, if so. None where the target bears no tags.
        OptionalText (*writeTags)(const QString& path, const TagsObject& tags) = nullptr;
    };
    explicit AppleLosslessEncoder(Kind kind) : StagedWav({.runsCleanup = true}), kind_(std::move(kind)) {}
    /// @param option  as EncoderTool::arguments takes it
    void setUpEncoder(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath, const QString& option);

    void doStartTask() override;

private:
    void copyTags();

    const Kind kind_;
    QString option_;
    QString outFile_;
};

} // namespace zolt
