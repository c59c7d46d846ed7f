#include "lossy/LossyTab.h"

#include "lossy/EncodeAACTask.h"
#include "lossy/EncodeMP3Task.h"
#include "lossy/LossyPlan.h"
#include "lossy/LossyTitles.h"
#include "platform/desktop/UserDefaults.h"
#include "shell/FileCommand.h"
#include "shell/Log.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int32_t highestVbr = 9;
constexpr uint32_t highestQuality = 127;

const QString sliderKey = u"lossySliderLevel"_s;
const QString stepperKey = u"lossyStepperLevel"_s;
const QString comboKey = u"lossyComboLevel"_s;

const QStringList& usualRates()
{
    static const QStringList rates{u"64"_s,  u"96"_s,  u"112"_s, u"128"_s, u"160"_s,
                                   u"192"_s, u"224"_s, u"256"_s, u"320"_s};
    return rates;
}

} // namespace

LossyTab::LossyTab()
    : outputFormatMatrix(std::make_shared<Matrix>(2, 1, QStringList{lossyTitle::MP3, lossyTitle::AAC})),
      mp3Matrix(std::make_shared<Matrix>(1, 2, QStringList{lossyTitle::CBR, lossyTitle::VBR})),
      aacMatrix(std::make_shared<Matrix>(
          2, 2, QStringList{lossyTitle::CBR, lossyTitle::ABR, lossyTitle::VBR_CONSTRAINED, lossyTitle::VBR})),
      slider(std::make_shared<Slider>(0, highestVbr, 0)), stepper(std::make_shared<Stepper>(0, highestQuality, 0)),
      comboBox(std::make_shared<ComboBox>(usualRates()))
{
    sourceEncodeButton->setState(true);
    connectControls();
}

void LossyTab::connectControls()
{
    for (const auto& matrix : {outputFormatMatrix, mp3Matrix, aacMatrix})
        matrix->setAction([this, sender = matrix.get()] { changeDisplayOptions(sender); });
    slider->setSaver([this] { sliderLevel_ = slider->intValue(); });
    comboBox->setSaver([this] { comboLevel_ = comboBox->intValue(); });
    stepper->setSaver([this] { stepperLevel_ = stepper->intValue(); });
    stepper->setAction([this] { stepperAction(stepper.get()); });
    stepperTextField->setAction([this] { controlTextDidChange(); });
}

void LossyTab::awakeFromNib()
{
    BaseTab::awakeFromNib();
    auto& defaults = UserDefaults::standard();
    setSliderLevel(defaults.integerForKey(sliderKey));
    setComboLevel(defaults.integerForKey(comboKey));
    setStepperLevel(defaults.integerForKey(stepperKey));
    stepperAction(nullptr);
}

void LossyTab::setSliderLevel(int32_t level)
{
    slider->setIntValue(level);
    sliderLevel_ = slider->intValue();
}

void LossyTab::setStepperLevel(int32_t level)
{
    stepper->setIntValue(level);
    stepperLevel_ = stepper->intValue();
}

void LossyTab::setComboLevel(int32_t level)
{
    comboBox->setIntValue(level);
    comboLevel_ = comboBox->intValue();
}

bool LossyTab::isMP3() const
{
    return outputFormatMatrix->selectedCell().title == lossyTitle::MP3;
}

LossyChoice LossyTab::choiceOf(bool mp3) const
{
    const QString mode = (mp3 ? mp3Matrix : aacMatrix)->selectedCell().title;
    const int32_t ofQuality = mp3 ? sliderLevel_ : stepperLevel_;
    return {.mp3 = mp3, .mode = mode, .level = mode == lossyTitle::VBR ? ofQuality : comboLevel_};
}

void LossyTab::displayRelevantOptions()
{
    const bool mp3 = isMP3();
    const bool quality = choice().mode == lossyTitle::VBR;
    mp3Matrix->setEnabled(mp3);
    aacMatrix->setEnabled(!mp3);
    comboBox->setEnabled(!quality);
    slider->setEnabled(mp3 && quality);
    stepper->setEnabled(!mp3 && quality);
    stepperTextField->setEnabled(!mp3 && quality);
    UserDefaults::standard().set(sliderKey, slider->intValue());
    UserDefaults::standard().set(comboKey, comboBox->intValue());
}

void LossyTab::stepperAction(Sender)
{
    stepperTextField->setIntValue(stepper->intValue());
    UserDefaults::standard().set(stepperKey, stepper->intValue());
}

void LossyTab::controlTextDidChange()
{
    try {
        const int32_t entered = stepperTextField->intValue();
        if (uint32_t(entered) <= highestQuality) { // a negative one is more, too
            setStepperLevel(entered);
            stepper->setIntValue(entered);
        }
    } catch (const std::exception& fault) {
        qCWarning(shellLog, "ex %s", fault.what());
        stepperTextField->setIntValue(stepper->intValue());
    }
    stepperAction(nullptr);
}

Outlets LossyTab::outlets() const
{
    return {{u"outputFormatMatrix"_s, outputFormatMatrix},
            {u"mp3Matrix"_s, mp3Matrix},
            {u"aacMatrix"_s, aacMatrix},
            {u"slider"_s, slider},
            {u"stepper"_s, stepper},
            {u"stepperTextField"_s, stepperTextField},
            {u"comboBox"_s, comboBox},
            {u"sourceEncodeButton"_s, sourceEncodeButton},
            {u"deleteOriginalsButton"_s, deleteOriginalsButton}};
}

WorkPlan LossyTab::workPlan() const
{
    WorkPlan plan = BaseTab::workPlan();
    plan.setPlaces(sourceEncodeButton->state(), destination());
    plan.deletes = deleteOriginalsButton->state();
    lossyPlan::fill(plan, choice());
    return plan;
}

std::shared_ptr<ZOLTTask> LossyTab::taskFor(const QString& file, const QString& folder, const LossyChoice& chosen) const
{
    if (chosen.mp3)
        return EncodeMP3Task::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(taskQueue(), file, chosen.mode, folder,
                                                                                 chosen.level);
    return EncodeAACTask::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(taskQueue(), file, chosen.mode, folder,
                                                                             chosen.level);
}

void LossyTab::executeCommand(Sender)
{
    const bool mp3 = isMP3(); // before the questions, which let clicks through
    const auto command = FileCommand::start(
        *this, {.besideSources = sourceEncodeButton->state(), .deletes = deleteOriginalsButton->state()});
    if (!command) return;
    for (const QString& file : command->files())
        command->queue(taskFor(file, command->folderFor(file), choiceOf(mp3)));
    clearFiles();
}

} // namespace zolt
