#include "encode/EncodeTab.h"

#include "checksum/CreateMD5Task.h"
#include "encode/EncodeALACToFlacTask.h"
#include "encode/EncodeDepths.h"
#include "encode/EncodeFlacTask.h"
#include "encode/EncodeRoutes.h"
#include "encode/EncodeSHNTask.h"
#include "encode/EncodeSHNToFlacTask.h"
#include "encode/ShntoolConversion.h"
#include "engine/ZOLTTask.h"
#include "platform/controls/DefaultsBinding.h"
#include "platform/desktop/ToolsDirectory.h"
#include "shell/Constants.h"
#include "shell/FileCommand.h"
#include "shell/Wording.h"

namespace zolt {

using namespace Qt::StringLiterals;
using C = Constants;

namespace {

QString upperExtension(const QString& file)
{
    return path::extension(file).toUpper();
}

/// By the matrix's cells: two columns, row by row.
const QStringList& targets()
{
    static const QStringList formats{C::SHN, C::WV, C::FLAC, C::TTA, C::APE, C::M4A};
    return formats;
}

} // namespace

EncodeTab::EncodeTab()
    : outputFormatMatrix(std::make_shared<Matrix>(3, 2, targets())),
      wavepackFormatMatrix(std::make_shared<Matrix>(1, 2, QStringList{u"Fast"_s, u"High"_s}))
{
    sourceEncodeButton->setState(true);
    bindToDefault(*outputFormatMatrix, u"encodeOutputFormat"_s);
    bindToDefault(*flacSlider, u"encodeFlacLevel"_s);
    outputFormatMatrix->setAction([this] { changeDisplayOptions(outputFormatMatrix.get()); });
}

void EncodeTab::awakeFromNib()
{
    BaseTab::awakeFromNib();
    displayRelevantOptions();
}

QString EncodeTab::target() const
{
    return targets().value(outputFormatMatrix->selectedIndex());
}

void EncodeTab::displayRelevantOptions()
{
    const std::vector<std::pair<QString, Control*>> options{
        {C::SHN, generateMD5Button.get()},
        {C::FLAC, flacVerifyButton.get()},
        {C::FLAC, flacLaxButton.get()},
        {C::FLAC, flacSlider.get()},
        {C::FLAC, flacKeepForeignMetadataButton.get()},
        {C::APE, apeSlider.get()},
        {C::WV, wavepackFormatMatrix.get()},
    };
    const QString selected = target();
    for (const auto& [format, control] : options)
        control->setEnabled(format == selected);
}

Outlets EncodeTab::outlets() const
{
    return {
        {u"outputFormatMatrix"_s, outputFormatMatrix},
        {u"flacSlider"_s, flacSlider},
        {u"flacVerifyButton"_s, flacVerifyButton},
        {u"flacLaxButton"_s, flacLaxButton},
        {u"flacKeepForeignMetadataButton"_s, flacKeepForeignMetadataButton},
        {u"generateMD5Button"_s, generateMD5Button},
        {u"apeSlider"_s, apeSlider},
        {u"wavepackFormatMatrix"_s, wavepackFormatMatrix},
        {u"sourceEncodeButton"_s, sourceEncodeButton},
        {u"deleteOriginalsButton"_s, deleteOriginalsButton},
    };
}

QString EncodeTab::wavpackOption() const
{
    return wavepackFormatMatrix->selectedColumn() == 0 ? u"-f"_s : u"-h"_s;
}

QStringList EncodeTab::flacArguments(const QString& file, const QString& folder) const
{
    QStringList arguments;
    arguments += flacLaxButton->state() ? u"--lax"_s : u"-%1"_s.arg(flacSlider->intValue());
    if (flacKeepForeignMetadataButton->state()) arguments += u"--keep-foreign-metadata"_s;
    if (flacVerifyButton->state()) arguments += u"-V"_s;
    return arguments << file << u"-o"_s << path::inFolderWithExtension(file, folder, u"flac"_s);
}

QString EncodeTab::shntoolSpecification() const
{
    if (flacLaxButton->state()) return u"cust ext=flac flac --lax -o %f -"_s;
    const QString verify = flacVerifyButton->state() ? u" -V "_s : QString();
    return u"cust ext=flac flac -%1 %2 -o %f -"_s.arg(QString::number(flacSlider->intValue()), verify);
}

std::shared_ptr<EncodeSHNTask>
EncodeTab::encodeSHNOutputPathInQueueWithResults(const QString& file, const QString& folder, ZOLTTaskQueue* queue,
                                                 const std::shared_ptr<ZOLTTaskResults>& results) const
{
    return EncodeSHNTask::initAsyncTaskWithQueueLaunchPathArgumentsWithResults(
        queue, path::appendingComponent(pathToCommandLineTools(), u"shntool"_s),
        shntool::toFormat(u"shn"_s, folder, file), results);
}

std::shared_ptr<ZOLTTask> EncodeTab::encodeFLACOutputPathInQueue(const QString& file, const QString& folder,
                                                                 ZOLTTaskQueue* queue) const
{
    const QString type = upperExtension(file);
    if (type == C::SHN || type == C::APE) {
        return EncodeSHNToFlacTask::initAsyncTaskWithQueueLaunchPathArgumentsType(
            queue, path::appendingComponent(pathToCommandLineTools(), u"shntool"_s),
            shntool::throughEncoder(shntoolSpecification(), folder, file), type);
    }
    if (type == C::M4A) {
        return EncodeALACToFlacTask::initEncodeTaskWithQueueFileNameOutputPathLevelVerify(
            queue, file, folder, flacSlider->intValue(), flacVerifyButton->state());
    }
    return EncodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(
        file, queue, path::appendingComponent(pathToCommandLineTools(), u"flac"_s), flacArguments(file, folder));
}

void EncodeTab::setUpMD5(ZOLTTaskResults& results, const FileCommand& command) const
{
    QStringList outputs;
    for (const QString& file : command.files())
        outputs += path::inFolderWithExtension(file, command.folderFor(file), u"shn"_s);
    const QString list =
        path::appendingComponent(command.folderFor(command.files().first()), CreateMD5Task::defaultName);
    results.setTaskAfterSetDone(
        CreateMD5Task::initWithQueueFilesOutputPath(taskQueue(), std::make_shared<FileList>(outputs), list));
}

void EncodeTab::executeCommand(Sender)
{
    const QString format = target();
    const bool listsSums = generateMD5Button->state(); // kept: whatever the target, though disabled
    const auto command = FileCommand::start(
        *this, {.besideSources = sourceEncodeButton->state(), .deletes = deleteOriginalsButton->state()});
    if (!command) return;
    const auto results = std::make_shared<ZOLTTaskResults>();
    if (listsSums) setUpMD5(*results, *command);
    for (const QString& file : command->files()) {
        const EncodeRoute* const route = encodeRoute(format, upperExtension(file));
        if (!route) continue;
        const auto task = route->task({*this, file, command->folderFor(file), results});
        if (task->results() == results) results->addTaskInSet(task);
        command->queue(task);
    }
    clearFiles();
}

void EncodeTab::plan(WorkPlan& plan, qsizetype row, const QString& format) const
{
    const QString& file = plan.files[row];
    const QString type = upperExtension(file);
    const EncodeRoute* const route = encodeRoute(format, type);
    if (!route) return plan.passedOver.append(row);
    plan.items.push_back({.row = row,
                          .source = file,
                          .outputs = {route->output(file, plan.folderFor(file))},
                          .existing = route->existing,
                          .outputSize = WorkItem::Size::LikeSource,
                          .staged = route->staged,
                          .caution = caution(*route, type)});
    plan.tools += toolsOf(*route, type);
    if (route->deletion == EncodeRoute::Deletion::ForGood) plan.neverToTrash = true;
}

QString EncodeTab::caution(const EncodeRoute& route, const QString& type) const
{
    if (deleteOriginalsButton->state() && route.deletion == EncodeRoute::Deletion::Impossible)
        return u"The original of an %1 file cannot be deleted after encoding to %2: the command stops at the first of "
               "them"_s.arg(type, route.target);
    return declinedInWords(route.target, type);
}

WorkPlan EncodeTab::workPlan() const
{
    WorkPlan all = BaseTab::workPlan();
    const QString format = target();
    all.setPlaces(sourceEncodeButton->state(), destination());
    all.deletes = deleteOriginalsButton->state();
    for (qsizetype row = 0; row < all.files.size(); ++row)
        plan(all, row, format);
    all.tools.removeDuplicates();
    all.words = all.items.empty() ? u"No output format is selected"_s : inWords(all);
    all.inspect = [format](const WorkPlan& plan, const std::atomic<bool>& stop) {
        return unfitDepths(format, plan, stop);
    };
    return all;
}

QString EncodeTab::inWords(const WorkPlan& plan) const
{
    const QString options = optionsInWords();
    const QString words = filesInWords(plan.sources()) + u" to "_s + target();
    return options.isEmpty() ? words : words + u" ("_s + options + u')';
}

QString EncodeTab::flacLevelInWords() const
{
    if (flacLaxButton->state()) return u"Level: flac's own"_s;
    static const QStringList meanings{u"fastest"_s, {}, {}, {}, {}, u"the usual"_s, {}, {}, u"smallest files"_s};
    const int level = flacSlider->intValue();
    const QString meaning = meanings.value(level);
    return meaning.isEmpty() ? u"Level %1 of 8"_s.arg(level)
                             : u"Level %1 of 8, %2"_s.arg(QString::number(level), meaning);
}

QString EncodeTab::apeLevelInWords() const
{
    static const QStringList meanings{{}, u"fast"_s, u"normal"_s, u"high"_s, u"extra high"_s, u"slowest"_s};
    return u"Level %1, %2"_s.arg(apeLevel(), meanings.value(apeSlider->intValue() / 1000));
}

QString EncodeTab::optionsInWords() const
{
    const QString format = target();
    QStringList words;
    if (format == C::FLAC) {
        words += flacLaxButton->state() ? u"lax"_s : u"level %1"_s.arg(flacSlider->intValue());
        if (flacVerifyButton->state()) words += u"verified"_s;
        if (flacKeepForeignMetadataButton->state()) words += u"foreign metadata kept"_s;
    }
    if (format == C::APE) words += u"level %1"_s.arg(apeLevel());
    if (format == C::WV) words += wavepackFormatMatrix->selectedCell().title.toLower();
    if (format == C::SHN && generateMD5Button->state()) words += u"with an MD5 list"_s;
    return words.join(u", "_s);
}

} // namespace zolt
