#include "decode/DecodeTab.h"

#include "decode/DecodeFlacTask.h"
#include "decode/DecodeSHNTask.h"
#include "decode/Decoders.h"
#include "encode/ShntoolConversion.h"
#include "engine/ZOLTTask.h"
#include "shell/Constants.h"
#include "shell/FileCommand.h"
#include "shell/Wording.h"

namespace zolt {

namespace {

using C = Constants;

void addOnce(QStringList& all, const QStringList& names)
{
    all += names;
    all.removeDuplicates();
}

QString extensionFor(const QString& format)
{
    return format == C::AIFF ? QStringLiteral("aiff") : QStringLiteral("wav");
}

} // namespace

DecodeTab::DecodeTab() : outputFormatMatrix(std::make_shared<Matrix>(2, 1, QStringList{C::WAV, C::AIFF}))
{
    sourceDecodeButton->setState(true);
}

void DecodeTab::awakeFromNib()
{
    BaseTab::awakeFromNib();
    showFLacOptions(false);
}

void DecodeTab::showFLacOptions(bool show)
{
    decodeFlacThroughErrors->setHidden(!show);
    flacKeepForeignMetadataButton->setHidden(!show);
    flacOptionsLabel->setHidden(!show);
}

void DecodeTab::clearFiles()
{
    BaseTab::clearFiles();
    showFLacOptions(false);
}

void DecodeTab::filesAdded()
{
    if (!flacOptionsLabel->isHidden()) return; // they stay shown until the list is cleared
    const QStringList files = fileNames().copy();
    const auto isFlac = [](const QString& file) { return path::extension(file).toUpper() == C::FLAC; };
    if (std::any_of(files.begin(), files.end(), isFlac)) showFLacOptions(true);
}

QString DecodeTab::outputFormat() const
{
    return outputFormatMatrix->selectedCell().title;
}

QStringList DecodeTab::flacArguments(const QString& file, const QString& folder, const QString& format) const
{
    QStringList arguments{QStringLiteral("-d")};
    if (flacKeepForeignMetadataButton->state()) arguments += QStringLiteral("--keep-foreign-metadata");
    if (decodeFlacThroughErrors->state()) arguments += QStringLiteral("-F");
    if (format == C::AIFF) arguments += QStringLiteral("--force-aiff-format");
    return arguments << file << QStringLiteral("-o") << path::inFolderWithExtension(file, folder, extensionFor(format));
}

QStringList DecodeTab::shnArguments(const QString& file, const QString& folder, const QString& format)
{
    return shntool::toFormat(format.toLower(), folder, file);
}

QStringList DecodeTab::wavpackArguments(const QString& file, const QString& folder, const QString& format)
{
    const QString extension = format == C::WAV ? QStringLiteral("wav") : QStringLiteral("aiff");
    return shntool::toFormat(QStringLiteral("cust ext=%1 wvunpack %f -").arg(extension), folder, file);
}

std::shared_ptr<DecodeFlacTask> DecodeTab::decodeFlacOutputPathForFormatInQueue(const QString& file,
                                                                                const QString& folder,
                                                                                const QString& format,
                                                                                ZOLTTaskQueue* queue) const
{
    return DecodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(
        file, queue, path::appendingComponent(pathToCommandLineTools(), QStringLiteral("flac")),
        flacArguments(file, folder, format));
}

std::shared_ptr<DecodeSHNTask> DecodeTab::decodeSHNOutputPathForFormatInQueue(const QString& file,
                                                                              const QString& folder,
                                                                              const QString& format,
                                                                              ZOLTTaskQueue* queue) const
{
    return DecodeSHNTask::initAsyncTaskWithQueueLaunchPathArguments(
        queue, path::appendingComponent(pathToCommandLineTools(), QStringLiteral("shntool")),
        shnArguments(file, folder, format));
}

std::shared_ptr<DecodeSHNTask> DecodeTab::decodeWavpackOutputPathForFormatInQueue(const QString& file,
                                                                                  const QString& folder,
                                                                                  const QString& format,
                                                                                  ZOLTTaskQueue* queue) const
{
    return DecodeSHNTask::initAsyncTaskWithQueueLaunchPathArguments(
        queue, path::appendingComponent(pathToCommandLineTools(), QStringLiteral("wvunpack")),
        wavpackArguments(file, folder, format));
}

Outlets DecodeTab::outlets() const
{
    return {
        {QStringLiteral("outputFormatMatrix"), outputFormatMatrix},
        {QStringLiteral("flacOptionsLabel"), flacOptionsLabel},
        {QStringLiteral("decodeFlacThroughErrors"), decodeFlacThroughErrors},
        {QStringLiteral("flacKeepForeignMetadataButton"), flacKeepForeignMetadataButton},
        {QStringLiteral("sourceDecodeButton"), sourceDecodeButton},
        {QStringLiteral("deleteOriginalsButton"), deleteOriginalsButton},
    };
}

void DecodeTab::plan(WorkPlan& plan, qsizetype row, const QString& format) const
{
    const QString& file = plan.files[row];
    const Decoder* const decoder = decoderOf(file);
    if (!decoder) return plan.passedOver.append(row);
    plan.items.push_back({.row = row,
                          .source = file,
                          .outputs = {decoder->output(file, plan.folderFor(file), format)},
                          .existing = decoder->existing(format),
                          .outputSize = WorkItem::Size::PlainAudio,
                          .caution = caution(*decoder)});
    addOnce(plan.tools, decoder->tools);
    if (format == C::AIFF) addOnce(plan.tools, decoder->toolsForAiff);
}

QString DecodeTab::caution(const Decoder& decoder) const
{
    if (!deleteOriginalsButton->state() || decoder.tellsFailure) return {};
    return QStringLiteral("A %1 file is deleted even if it cannot be decoded: test it first").arg(decoder.extension);
}

WorkPlan DecodeTab::workPlan() const
{
    WorkPlan all = BaseTab::workPlan();
    const QString format = outputFormat();
    all.setPlaces(sourceDecodeButton->state(), destination());
    all.deletes = deleteOriginalsButton->state();
    for (qsizetype row = 0; row < all.files.size(); ++row)
        plan(all, row, format);
    all.words = all.items.empty() ? QStringLiteral("Nothing in the list can be decoded")
                                  : filesInWords(all.sources()) + QStringLiteral(" to ") + format;
    return all;
}

std::shared_ptr<ZOLTTask> DecodeTab::taskFor(const QString& file, const QString& folder, const QString& format) const
{
    const Decoder* const decoder = decoderOf(file);
    return decoder ? decoder->task({*this, file, folder, format}) : nullptr;
}

void DecodeTab::executeCommand(Sender)
{
    const QString format = outputFormat(); // a question may change it
    const auto command = FileCommand::start(
        *this, {.besideSources = sourceDecodeButton->state(), .deletes = deleteOriginalsButton->state()});
    if (!command) return;
    for (const QString& file : command->files()) // a file that nothing here decodes is skipped without a word
        command->queue(taskFor(file, command->folderFor(file), format));
    clearFiles();
}

} // namespace zolt
