// Makes an image of a DVD-Audio disc: dvda builds the tree, mkisofs packs it.
#pragma once

#include "engine/ZOLTThreadTask.h"

namespace zolt {

class DVDAuthorTask : public ZOLTThreadTask
{
public:
    /// @param fileNames   the sources, which have one rate, depth and number of channels
    /// @param outputPath  the folder of the image, the log and, meanwhile, the tree
    static std::shared_ptr<DVDAuthorTask>
    initTaskWithQueueFileNamesOutputPath(ZOLTTaskQueue* queue, const QStringList& fileNames, const QString& outputPath);

    void processImageTaskOutput(const OptionalText& output);
    /// A piece that was cut within a marker's line is logged and shows nothing.
    void processDVDATaskOutput(const OptionalText& output);
    /// Kept: neither tool's status is looked at, and the image is tried whatever became of the tree.
    void makeImage();
    void authorDisc();

    /// The tree, and the image of it.
    int stageCount() const override { return 2; }

    static constexpr char16_t imageName[] = u"image.iso";

protected:
    void doStartTask() override;

private:
    DVDAuthorTask();
    void showFile(const QString& rest);
    QString inOutput(const QString& name) const;

    QStringList fileNames_;
    QString outputPath_;
};

} // namespace zolt
