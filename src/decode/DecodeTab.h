// The tab that decodes: each listed file becomes one WAV or AIFF file.
#pragma once

#include "platform/controls/CheckBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/TextField.h"
#include "shell/BaseTab.h"

namespace zolt {

class DecodeFlacTask;
class DecodeSHNTask;
class ZOLTTask;
struct Decoder;

class DecodeTab : public BaseTab
{
public:
    DecodeTab();

    void awakeFromNib() override;
    /// Shows or hides the two FLAC options and their heading.
    void showFLacOptions(bool show);
    void clearFiles() override;
    std::shared_ptr<DecodeFlacTask> decodeFlacOutputPathForFormatInQueue(const QString& file, const QString& folder,
                                                                         const QString& format,
                                                                         ZOLTTaskQueue* queue) const;
    std::shared_ptr<DecodeSHNTask> decodeSHNOutputPathForFormatInQueue(const QString& file, const QString& folder,
                                                                       const QString& format,
                                                                       ZOLTTaskQueue* queue) const;
    /// Kept: no command uses it, and it would run wvunpack with shntool's arguments.
    std::shared_ptr<DecodeSHNTask> decodeWavpackOutputPathForFormatInQueue(const QString& file, const QString& folder,
                                                                           const QString& format,
                                                                           ZOLTTaskQueue* queue) const;
    /// One FLAC file is enough to show the FLAC options; only emptying the list hides them again.
    void filesAdded() override;
    void executeCommand(Sender sender) override;
    Outlets outlets() const override;
    WorkPlan workPlan() const override;

    /// flac's argument vector for one file.
    /// @param format  Constants::WAV or Constants::AIFF
    QStringList flacArguments(const QString& file, const QString& folder, const QString& format) const;
    /// shntool's argument vector for one Shorten file. Its layout is fixed: the source stands at index 9.
    static QStringList shnArguments(const QString& file, const QString& folder, const QString& format);
    /// As shnArguments through shntool's custom output, for Wavpack; no command uses it.
    static QStringList wavpackArguments(const QString& file, const QString& folder, const QString& format);

    /// The title of the selected output format.
    QString outputFormat() const;

    // Outlets.
    std::shared_ptr<Matrix> outputFormatMatrix;
    std::shared_ptr<CheckBox> decodeFlacThroughErrors = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> flacKeepForeignMetadataButton = std::make_shared<CheckBox>();
    std::shared_ptr<TextField> flacOptionsLabel = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<CheckBox> sourceDecodeButton = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> deleteOriginalsButton = std::make_shared<CheckBox>();

private:
    std::shared_ptr<ZOLTTask> taskFor(const QString& file, const QString& folder, const QString& format) const;
    void plan(WorkPlan& plan, qsizetype row, const QString& format) const;
    QString caution(const Decoder& decoder) const;
};

} // namespace zolt
