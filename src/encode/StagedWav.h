// Conversions in stages: what thread tasks do to have a WAV or AIFF file on their road.
#pragma once

#include "engine/ConsoleGrammar.h"
#include "engine/ZOLTThreadTask.h"

namespace zolt {

/// A thread task from one source to one file in an output folder. A temporary file is made in that folder; whoever
/// asked for it removes it. No stage's success is looked at here: a later one fails on what an earlier one left.
class StagedWav : public ZOLTThreadTask
{
public:
    /// AIFF or Apple Lossless into a temporary WAV, in process. @return the temporary file
    QString convertToWav(const QString& source);
    /// A WAV into the AIFF that is named after the task's source, in process. @return the AIFF
    QString convertToAiff(const QString& wav);
    /// A source that shntool reads into a temporary WAV. Neither a cancel nor an error cuts the tool short, here and in
    /// the next two. @return the temporary file
    /// @throws PlatformException if the tool cannot be started or its text cannot be read; no file is left then
    QString convertSHNToWav(const QString& source);
    /// As convertSHNToWav, with flac.
    QString convertFLACToWav(const QString& source);
    /// As convertSHNToWav, with mac.
    QString convertAPEToWav(const QString& source);

    QString source() const override { return fileName_; }

    virtual void processSHNToWavTaskOutput(const OptionalText& output);
    virtual void processFLACToWavTaskOutput(const OptionalText& output);
    virtual void processAPEToWavTaskOutput(const OptionalText& output);

protected:
    explicit StagedWav(const ThreadEnd& end = {}) : ZOLTThreadTask(end) {}
    /// @param fileName    full path of the source; its last component is the title
    /// @param outputPath  the output folder
    void setUpStaged(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath);

    const QString& fileName() const { return fileName_; }
    const QString& outputPath() const { return outputPath_; }
    /// The source's extension in upper case, by which sources are told apart.
    QString sourceType() const;
    /// The path in the output folder that has the source's base name and this extension.
    QString outputFile(const QString& extension) const;
    /// A new empty file in the output folder. @throws AssertionException if none can be made
    QString temporaryWav() const;
    /// One conversion in process, from file to file; see EncodeCoreAudioSync.
    void convert(const QString& from, const QString& to, uint32_t formatType, uint32_t fileType);

private:
    QString decodeWith(const QString& tool, const QString& temporary, const QStringList& arguments,
                       void (StagedWav::*parser)(const OptionalText&));

    QString fileName_;
    QString outputPath_;
};

} // namespace zolt
