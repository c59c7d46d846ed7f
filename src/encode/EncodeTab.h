// The tab that encodes: each listed file becomes one file of a lossless format.
#pragma once

#include "platform/controls/CheckBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/Slider.h"
#include "shell/BaseTab.h"

namespace zolt {

class EncodeSHNTask;
class FileCommand;
class ZOLTTask;
class ZOLTTaskResults;
struct EncodeRoute;

class EncodeTab : public BaseTab
{
public:
    EncodeTab();

    void awakeFromNib() override;
    /// Enables the options of the selected target and no others; their states stay.
    void displayRelevantOptions() override;
    /// @throws InvalidArgumentException where a task cannot delete its source and is to; kept: tasks before it stay
    /// queued and the list stays
    void executeCommand(Sender sender) override;
    Outlets outlets() const override;
    WorkPlan workPlan() const override;

    /// @param results  shared by all tasks of a command
    std::shared_ptr<EncodeSHNTask>
    encodeSHNOutputPathInQueueWithResults(const QString& file, const QString& folder, ZOLTTaskQueue* queue,
                                          const std::shared_ptr<ZOLTTaskResults>& results) const;
    /// A task of one of three classes, by what the source is.
    std::shared_ptr<ZOLTTask> encodeFLACOutputPathInQueue(const QString& file, const QString& folder,
                                                          ZOLTTaskQueue* queue) const;

    /// The constant of the selected cell; empty where no cell is selected.
    QString target() const;
    /// The level of the Monkey's Audio slider, as mac takes it.
    QString apeLevel() const { return apeSlider->stringValue(); }
    /// "-f" or "-h".
    QString wavpackOption() const;
    /// What the levels of the two sliders mean, for a person.
    QString flacLevelInWords() const;
    QString apeLevelInWords() const;
    /// What the selected target's options amount to, for a person: "level 5 of 8, verified"; empty without any.
    QString optionsInWords() const;

    // Outlets.
    std::shared_ptr<CheckBox> sourceEncodeButton = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> deleteOriginalsButton = std::make_shared<CheckBox>();
    std::shared_ptr<Matrix> outputFormatMatrix;
    std::shared_ptr<CheckBox> generateMD5Button = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> flacVerifyButton = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> flacLaxButton = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> flacKeepForeignMetadataButton = std::make_shared<CheckBox>();
    std::shared_ptr<Slider> flacSlider = std::make_shared<Slider>(0, 8, 5);
    std::shared_ptr<Slider> apeSlider = std::make_shared<Slider>(1000, 5000, 2000, 1000);
    std::shared_ptr<Matrix> wavepackFormatMatrix;

private:
    QStringList flacArguments(const QString& file, const QString& folder) const;
    QString shntoolSpecification() const;
    void setUpMD5(ZOLTTaskResults& results, const FileCommand& command) const;
    void plan(WorkPlan& plan, qsizetype row, const QString& format) const;
    QString caution(const EncodeRoute& route, const QString& type) const;
    QString inWords(const WorkPlan& plan) const;
};

} // namespace zolt
