// The tab that has shntool repair the sector boundaries of a set of files.
#pragma once

#include "platform/controls/CheckBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/Slider.h"
#include "shell/BaseTab.h"

namespace zolt {

class FixTask;

class FixTab : public BaseTab
{
public:
    FixTab();

    void awakeFromNib() override;
    /// The list stays until the task has ended; it works on the list itself.
    void executeCommand(Sender sender) override;
    /// Kept: a choice that is disabled still counts.
    void displayRelevantOptions() override;
    Outlets outlets() const override;
    /// Refuses while a fix of the list waits or runs: both would write the same files, and the first to end would empty
    /// the list of the other.
    WorkPlan workPlan() const override;
    /// What the level stands at, and what becomes of it.
    QString flacLevelInWords() const;

    // Outlets.
    std::shared_ptr<Matrix> outputFormatMatrix;
    std::shared_ptr<Slider> flacLevelSlider = std::make_shared<Slider>(0, 8, 5); ///< kept: reaches no tool
    std::shared_ptr<Matrix> shnMd5Option;
    std::shared_ptr<CheckBox> deleteOriginalsButton = std::make_shared<CheckBox>();

private:
    QString format() const;
    bool isFixing() const;

    std::weak_ptr<FixTask> task_; // the last one queued
};

} // namespace zolt
