#include "decode/DecodeTab.h"

#include "decode/DecodeFlacTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Panels.h"
#include "shell/Constants.h"

namespace zolt {

namespace {

using C = Constants;

QString upperExtension(const QString& file)
{
    return path::extension(file).toUpper();
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
    return extension == C::FLAC;
}

QStringList DecodeTab::toolsNeeded() const
{
    QStringList tools;
    const QStringList files = fileNames().copy();
    if (std::any_of(files.begin(), files.end(), [](const QString& file) { return decodes(upperExtension(file)); })) {
        tools += QStringLiteral("flac");
        if (outputFormat() == C::AIFF) tools += QStringLiteral("metaflac"); // for the tags
    }
    return tools;
}

std::shared_ptr<ZOLTTask> DecodeTab::taskFor(const QString& file, const QString& folder, const QString& format) const
{
    if (upperExtension(file) == C::FLAC) return decodeFlacOutputPathForFormatInQueue(file, folder, format, taskQueue());
    return nullptr;
}

void DecodeTab::executeCommand(Sender)
{
    if (fileNames().isEmpty()) return;
    const QString format = outputFormat();
    const bool besideSource = sourceDecodeButton->state();
    const bool deleteOriginals = deleteOriginalsButton->state();
    if (deleteOriginals && !confirmDeletion()) return;
    OptionalText folder;
    if (!besideSource && !(folder = chooseOutputFolder())) return;
    for (const QString& file : fileNames().copy()) {
        const auto task = taskFor(file, besideSource ? path::deletingLastComponent(file) : *folder, format);
        if (!task) continue; // a file that nothing here decodes is skipped without a word
        if (deleteOriginals) task->setDeleteOriginal(true);
        taskQueue()->addTask(task);
    }
    clearFiles();
}

} // namespace zolt
