#include "shntool/FixTab.h"

#include "platform/controls/DefaultsBinding.h"
#include "shell/Constants.h"
#include "shell/FileCommand.h"
#include "shntool/FixTask.h"
#include "shntool/ShntoolPlan.h"

namespace zolt {

using namespace Qt::StringLiterals;

using C = Constants;

FixTab::FixTab()
    : outputFormatMatrix(std::make_shared<Matrix>(2, 2, QStringList{C::SHN, C::FLAC, C::AIFF, C::WAV})),
      shnMd5Option(std::make_shared<Matrix>(3, 1, QStringList{FixTask::noMD5, FixTask::oneMD5, FixTask::MD5ByDisc}))
{
    bindToDefault(*outputFormatMatrix, u"fixOutputFormat"_s);
    bindToDefault(*flacLevelSlider, u"fixFlacLevel"_s);
    outputFormatMatrix->setAction([this] { changeDisplayOptions(outputFormatMatrix.get()); });
}

void FixTab::awakeFromNib()
{
    BaseTab::awakeFromNib();
    displayRelevantOptions();
}

QString FixTab::format() const
{
    return outputFormatMatrix->selectedCell().title;
}

void FixTab::displayRelevantOptions()
{
    flacLevelSlider->setEnabled(format() == C::FLAC);
    shnMd5Option->setEnabled(format() == C::SHN);
}

void FixTab::executeCommand(Sender)
{
    const QString wanted = format().toLower();
    const auto command = FileCommand::start(*this, {.deletes = deleteOriginalsButton->state()});
    if (!command) return;
    const auto task = FixTask::initFixTaskWithQueueFileNamesOutputFormatOutputPathMd5OptionFlacLevelTab(
        taskQueue(), fileList(), wanted, command->folderFor(QString()), shnMd5Option->selectedCell().title,
        flacLevelSlider->intValue(), this);
    task_ = task;
    command->queue(task);
}

bool FixTab::isFixing() const
{
    const auto task = task_.lock();
    return task && task->worksOnList();
}

Outlets FixTab::outlets() const
{
    return {{u"outputFormatMatrix"_s, outputFormatMatrix},
            {u"flacLevelSlider"_s, flacLevelSlider},
            {u"shnMd5Option"_s, shnMd5Option},
            {u"deleteOriginalsButton"_s, deleteOriginalsButton}};
}

QString FixTab::flacLevelInWords() const
{
    return u"FLAC level %1 of 8; shntool takes flac's own"_s.arg(flacLevelSlider->intValue());
}

WorkPlan FixTab::workPlan() const
{
    WorkPlan plan = BaseTab::workPlan();
    plan.deletes = deleteOriginalsButton->state();
    shntoolPlan::plan(plan, C::FIX, format().toLower(), destination());
    if (isFixing()) plan.refusal = u"A fix of these files is under way: wait for its end, which empties the list"_s;
    return plan;
}

} // namespace zolt
