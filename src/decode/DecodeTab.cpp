#include "decode/DecodeTab.h"

#include "decode/DecodeFlacTask.h"
#include "engine/ZOLTTask.h"
#include "shell/Constants.h"
#include "shell/FileCommand.h"
#include "shell/Wording.h"

namespace zolt {

namespace {

using C = Constants;

QString upperExtension(const QString& file)
{
    return path::extension(file).toUpper();
}

/// How files of one extension are decoded. A further decoder is a further row.
struct Decoder
{
    QString extension;
    QStringList tools;
    QStringList toolsForAiff; ///< besides
    std::shared_ptr<ZOLTTask> (*task)(const DecodeTab& tab, const QString& file, const QString& folder,
                                      const QString& format, ZOLTTaskQueue* queue);
    WorkItem::Existing existing = WorkItem::Existing::Refused;
};

std::shared_ptr<ZOLTTask> flacTask(const DecodeTab& tab, const QString& file, const QString& folder,
                                   const QString& format, ZOLTTaskQueue* queue)
{
    return tab.decodeFlacOutputPathForFormatInQueue(file, folder, format, queue);
}

const std::vector<Decoder>& decoders()
{
    static const std::vector<Decoder> rows{
        {C::FLAC, {QStringLiteral("flac")}, {QStringLiteral("metaflac")}, flacTask}, // metaflac gives the tags
    };
    return rows;
}

/// The row for a file; none for one that is skipped.
const Decoder* decoderOf(const QString& file)
{
    const QString extension = upperExtension(file);
    const auto& rows = decoders();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const auto& each) { return each.extension == extension; });
    return row == rows.end() ? nullptr : &*row;
}

void addOnce(QStringList& all, const QStringList& names)
{
    all += names;
    all.removeDuplicates();
}

/// What follows the output format in every shntool conversion: progress as a percentage, nothing overwritten.
QStringList shntoolTail(const QString& folder, const QString& file)
{
    return {QStringLiteral("-P"),
            QStringLiteral("pct"),
            QStringLiteral("-O"),
            QStringLiteral("never"),
            QStringLiteral("-d"),
            folder,
            file};
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
    // What was there before has been looked at; the options stay shown until the list is cleared.
    const auto isFlac = [](const QString& file) { return upperExtension(file) == C::FLAC; };
    if (std::any_of(lastAdded().begin(), lastAdded().end(), isFlac)) showFLacOptions(true);
}

QString DecodeTab::outputFormat() const
{
    return outputFormatMatrix->selectedCell().title;
}

QString DecodeTab::outputPath(const QString& file, const QString& folder, const QString& format)
{
    const QString base = path::deletingExtension(path::lastComponent(file));
    return path::appendingExtension(path::appendingComponent(folder, base),
                                    format == C::AIFF ? QStringLiteral("aiff") : QStringLiteral("wav"));
}

QStringList DecodeTab::flacArguments(const QString& file, const QString& folder, const QString& format) const
{
    QStringList arguments{QStringLiteral("-d")};
    if (flacKeepForeignMetadataButton->state()) arguments += QStringLiteral("--keep-foreign-metadata");
    if (decodeFlacThroughErrors->state()) arguments += QStringLiteral("-F");
    if (format == C::AIFF) arguments += QStringLiteral("--force-aiff-format");
    return arguments << file << QStringLiteral("-o") << outputPath(file, folder, format);
}

QStringList DecodeTab::shnArguments(const QString& file, const QString& folder, const QString& format)
{
    QStringList arguments{QStringLiteral("conv"), QStringLiteral("-o")};
    if (format == C::WAV) arguments += QStringLiteral("wav");
    if (format == C::AIFF) arguments += QStringLiteral("aiff");
    return arguments + shntoolTail(folder, file);
}

QStringList DecodeTab::wavpackArguments(const QString& file, const QString& folder, const QString& format)
{
    const QString extension = format == C::WAV ? QStringLiteral("wav") : QStringLiteral("aiff");
    return QStringList{QStringLiteral("conv"), QStringLiteral("-o"),
                       QStringLiteral("cust ext=%1 wvunpack %f -").arg(extension)} +
           shntoolTail(folder, file);
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

bool DecodeTab::decodes(const QString& extension)
{
    const auto& rows = decoders();
    return std::any_of(rows.begin(), rows.end(), [&](const auto& each) { return each.extension == extension; });
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
                          .outputs = {outputPath(file, plan.folderFor(file), format)},
                          .existing = decoder->existing,
                          .outputSize = WorkItem::Size::PlainAudio});
    addOnce(plan.tools, decoder->tools);
    if (format == C::AIFF) addOnce(plan.tools, decoder->toolsForAiff);
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
    return decoder ? decoder->task(*this, file, folder, format, taskQueue()) : nullptr;
}

void DecodeTab::executeCommand(Sender)
{
    const auto command = FileCommand::start(
        *this, {.besideSources = sourceDecodeButton->state(), .deletes = deleteOriginalsButton->state()});
    if (!command) return;
    const QString format = outputFormat();
    for (const QString& file : command->files()) // a file that nothing here decodes is skipped without a word
        command->queue(taskFor(file, command->folderFor(file), format));
    clearFiles();
}

} // namespace zolt
