#include "util/UtilPlan.h"

#include "shell/Constants.h"
#include "shell/Wording.h"
#include "tags/FlacTagHelper.h"
#include "util/DVDAuthorTask.h"
#include "util/DiscTracks.h"
#include "util/DiscVolumes.h"

namespace zolt::utilPlan {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

QString upperExtension(const QString& file)
{
    return path::extension(file).toUpper();
}

/// An item for each file of these extensions, or for every file where none are named; the others are passed over.
void planFiles(WorkPlan& plan, const QStringList& extensions)
{
    for (qsizetype row = 0; row < plan.files.size(); ++row) {
        if (extensions.isEmpty() || extensions.contains(upperExtension(plan.files[row])))
            plan.items.push_back({.row = row, .source = plan.files[row]});
        else
            plan.passedOver += row;
    }
}

/// metaflac declines these without a reason that anybody would see.
std::vector<WorkCaution> unfitForOneGain(const WorkPlan& plan, const std::atomic<bool>& stop)
{
    std::vector<WorkCaution> cautions;
    int rate = 0;
    for (const WorkItem& item : plan.items) {
        if (stop) return {};
        const auto format = FlacTagHelper().getFormatInfo(item.source);
        const QString name = path::lastComponent(item.source);
        if (rate == 0) rate = format->sampleRate();
        if (format->channels() > 2)
            cautions.push_back(
                {u"%1 has more than two channels: the tool will do nothing at all"_s.arg(name), {item.row}});
        else if (format->sampleRate() != rate)
            cautions.push_back(
                {u"%1 has another sample rate than the first file: the tool will do nothing at all"_s.arg(name),
                 {item.row}});
    }
    return cautions;
}

} // namespace

QString deEmphasizedPath(const QString& source, const QString& folder)
{
    const QString name = path::deletingExtension(path::lastComponent(source)) + u"-deemph"_s;
    return path::appendingExtension(path::appendingComponent(folder, name), path::extension(source));
}

QStringList withExtensions(const QStringList& files, const QStringList& extensions)
{
    QStringList kept = files;
    kept.removeIf([&](const QString& file) { return !extensions.contains(upperExtension(file)); });
    return kept;
}

void extracting(WorkPlan& plan, const OptionalText& destination)
{
    plan.setPlaces(false, destination);
    for (qsizetype row = 0; row < plan.files.size(); ++row) {
        const QString& file = plan.files[row];
        const QString name = path::lastComponent(trackPathsInOrder({file}).first());
        if (isInVirtualDiscFolder(file))
            plan.passedOver += row;
        else
            plan.items.push_back(
                {.row = row, .source = file, .outputs = {path::inFolderWithExtension(name, plan.folder, u"wav"_s)}});
    }
    plan.tools = {u"cdda2wav"_s, u"diskutil"_s};
    plan.words = plan.items.empty()
                     ? u"The desktop's own view of a disc cannot be read from: use Tracks of Disc instead"_s
                     : counted(qsizetype(plan.items.size()), u"track"_s) + u" to WAV"_s;
}

void renaming(WorkPlan& plan)
{
    planFiles(plan, {});
    plan.words = u"Give %1 a prefix and a number"_s.arg(counted(plan.files.size(), u"file"_s));
}

void gaining(WorkPlan& plan, bool adds)
{
    planFiles(plan, {C::FLAC});
    plan.tools = {u"metaflac"_s};
    const QString verb = adds ? u"Add replay gain to "_s : u"Remove replay gain from "_s;
    plan.words = plan.items.empty() ? u"There is no FLAC file in the list"_s : verb + filesInWords(plan.sources());
    if (adds) plan.inspect = unfitForOneGain;
}

void deEmphasizing(WorkPlan& plan, const OptionalText& destination)
{
    plan.setPlaces(false, destination);
    planFiles(plan, {C::AIF, C::AIFF, C::WAV});
    for (WorkItem& item : plan.items) {
        item.outputs = {deEmphasizedPath(item.source, plan.folder)};
        item.existing = WorkItem::Existing::Overwritten;
        item.outputSize = WorkItem::Size::LikeSource;
    }
    plan.tools = {u"sox"_s};
    plan.words = plan.items.empty() ? u"There is no WAV or AIFF file in the list"_s
                                    : u"De-emphasize "_s + filesInWords(plan.sources());
}

void authoring(WorkPlan& plan, const OptionalText& destination)
{
    plan.setPlaces(false, destination);
    planFiles(plan, {});
    for (WorkItem& item : plan.items) {
        item.outputs = {path::appendingComponent(plan.folder, QString::fromUtf16(DVDAuthorTask::imageName))};
        item.sharesOutput = true;
        item.existing = WorkItem::Existing::Overwritten;
        item.outputSize = WorkItem::Size::PlainAudio;
    }
    plan.tools = {u"dvda"_s, u"mkisofs"_s};
    plan.words = u"%1 to the image of a DVD-Audio disc"_s.arg(counted(plan.files.size(), u"file"_s));
}

} // namespace zolt::utilPlan
