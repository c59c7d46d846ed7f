// The tab of lossy encoding: each listed file becomes one MP3 or AAC file.
#pragma once

#include "lossy/LossyLevel.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"
#include "platform/controls/TextField.h"
#include "shell/BaseTab.h"

namespace zolt {

class ZOLTTask;

class LossyTab : public BaseTab
{
public:
    LossyTab();

    /// Takes the three levels from the settings.
    void awakeFromNib() override;
    /// Enables what applies to format and mode, and saves the levels of slider and combo box: these two are saved
    /// nowhere else.
    void displayRelevantOptions() override;
    /// Shows the stepper's value in its field and saves it.
    void stepperAction(Sender sender);
    /// The field's text has changed: 0 to 127 becomes the level, anything else is put back at once.
    void controlTextDidChange();
    void executeCommand(Sender sender) override;
    Outlets outlets() const override;
    WorkPlan workPlan() const override;

    // The levels; each is kept equal to its control both ways. What a control can't show, it holds at its end.
    int32_t sliderLevel() const { return sliderLevel_; }
    void setSliderLevel(int32_t level);
    int32_t stepperLevel() const { return stepperLevel_; }
    virtual void setStepperLevel(int32_t level);
    int32_t comboLevel() const { return comboLevel_; }
    void setComboLevel(int32_t level);

    /// What the level that counts comes to, for a person.
    QString levelInWords() const { return zolt::levelInWords(choice()); }
    /// Format, mode and level as they stand.
    LossyChoice choice() const { return choiceOf(isMP3()); }

    // Outlets.
    std::shared_ptr<CheckBox> sourceEncodeButton = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> deleteOriginalsButton = std::make_shared<CheckBox>();
    std::shared_ptr<Matrix> outputFormatMatrix;
    std::shared_ptr<Matrix> mp3Matrix;
    std::shared_ptr<Matrix> aacMatrix;
    std::shared_ptr<Slider> slider;     ///< lame's quality
    std::shared_ptr<Stepper> stepper;   ///< the AAC encoder's quality
    std::shared_ptr<ComboBox> comboBox; ///< kilobits a second
    std::shared_ptr<TextField> stepperTextField = std::make_shared<TextField>();

private:
    void connectControls();
    bool isMP3() const;
    LossyChoice choiceOf(bool mp3) const;
    std::shared_ptr<ZOLTTask> taskFor(const QString& file, const QString& folder, const LossyChoice& chosen) const;

    int32_t sliderLevel_ = 0;
    int32_t stepperLevel_ = 0;
    int32_t comboLevel_ = 0;
};

} // namespace zolt
