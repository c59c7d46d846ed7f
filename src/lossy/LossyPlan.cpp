#include "lossy/LossyPlan.h"

#include "encode/ShntoolConversion.h"
#include "platform/files/Files.h"
#include "platform/text/Text.h"
#include "shell/Constants.h"
#include "shell/Wording.h"
#include "tags/AudioFacts.h"

namespace zolt::lossyPlan {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

/// How files of one kind are encoded. What another tool decodes for AAC becomes a WAV on the way.
struct Source
{
    QString kind; ///< the extension in capitals
    bool stagedToMP3 = false;
    QStringList aacTools = {}; ///< beside the one that every file needs
    QString aacFails = {};     ///< why it can't work
};

const std::vector<Source>& sources()
{
    static const QString unread = u"%1 can't be turned into AAC, the audio service does not read it: decode it first"_s;
    static const QString recoded = u"Apple Lossless can't be turned into AAC as it is: decode it to WAV first"_s;
    static const std::vector<Source> rows{
        {C::WAV},
        {C::AIFF},
        {C::AIF},
        {C::FLAC, false, {u"flac"_s}},
        {C::SHN, false, {u"shntool"_s, u"shorten"_s}},
        {C::WV, false, {}, unread.arg(u"Wavpack"_s)},
        {C::TTA, false, {}, unread.arg(C::TTA)},
        {C::M4A, true, {}, recoded},
    };
    return rows;
}

const Source* sourceOf(const QString& file)
{
    const QString kind = path::extension(file).toUpper();
    const auto row =
        std::find_if(sources().begin(), sources().end(), [&](const auto& each) { return each.kind == kind; });
    return row == sources().end() ? nullptr : &*row;
}

WorkItem itemFor(const WorkPlan& plan, qsizetype row, const Source& source, bool mp3)
{
    const QString& file = plan.files[row];
    return {.row = row,
            .source = file,
            .outputs = {outputPath(file, plan.folderFor(file), mp3)},
            .existing = mp3 ? WorkItem::Existing::Refused : WorkItem::Existing::Overwritten,
            .outputSize = WorkItem::Size::LikeSource,
            .staged = mp3 ? source.stagedToMP3 : !source.aacTools.isEmpty(),
            .caution = mp3 ? QString() : source.aacFails};
}

void enter(WorkPlan& plan, qsizetype row, bool mp3)
{
    const Source* const source = sourceOf(plan.files[row]);
    if (!source) return plan.passedOver.append(row);
    WorkItem item = itemFor(plan, row, *source, mp3);
    if (item.outputs.first() == item.source) {
        plan.cautions += u"%1 would be written over itself and is left out"_s.arg(path::lastComponent(item.source));
        return plan.passedOver.append(row);
    }
    plan.tools += mp3 ? shntool::readersOf(source->kind) : source->aacTools;
    plan.items.push_back(std::move(item));
}

/// Of the source's audio. Where its header does not say, what lossless files of its size usually hold.
double secondsOf(const QString& source)
{
    constexpr double usualBytesASecond = 110000;
    const auto format = audioFormatOf(source);
    const bool known = format && format->sampleRate() > 0;
    return known ? format->time() : double(std::max<std::int64_t>(fileSize(source), 0)) / usualBytesASecond;
}

/// @param rate  kilobits a second; 0 where the encoder decides, and then nobody can say
std::int64_t estimatedBytes(const WorkPlan& plan, int32_t rate, const std::atomic<bool>& stop)
{
    constexpr double bytesAKilobit = 1000.0 / 8;
    double bytes = 0;
    for (const WorkItem& item : plan.items) {
        if (stop || rate == 0) return 0;
        bytes += secondsOf(item.source) * rate * bytesAKilobit;
    }
    return std::int64_t(bytes);
}

} // namespace

QString outputPath(const QString& source, const QString& folder, bool mp3)
{
    return path::inFolderWithExtension(source, folder, mp3 ? u"mp3"_s : u"m4a"_s);
}

void fill(WorkPlan& plan, const LossyChoice& choice)
{
    const bool mp3 = choice.mp3;
    for (qsizetype row = 0; row < plan.files.size(); ++row)
        enter(plan, row, mp3);
    if (plan.items.empty()) {
        plan.words = u"Nothing in the list can be encoded"_s;
        return;
    }
    plan.tools += mp3 ? QStringList{u"shntool"_s, u"lame"_s} : QStringList{u"AtomicParsley"_s};
    plan.tools.removeDuplicates();
    plan.words = filesInWords(plan.sources()) + (mp3 ? u" to MP3"_s : u" to AAC"_s);
    plan.estimate = [rate = expectedRate(choice)](const WorkPlan& whole, const std::atomic<bool>& stop) {
        return estimatedBytes(whole, rate, stop);
    };
}

} // namespace zolt::lossyPlan
