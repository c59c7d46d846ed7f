#include "util/UtilPlan.h"

#include "shell/Constants.h"
#include "shell/Wording.h"
#include "tags/FlacBlocks.h"
#include "util/DVDAuthorTask.h"
#include "util/DiscContents.h"
#include "util/DiscTracks.h"
#include "util/DiscVolumes.h"

#include <QFileInfo>
#include <QMap>

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
    const auto caution = [](const WorkItem& item, const QString& what) {
        return WorkCaution{path::lastComponent(item.source) + what + u": the tool will do nothing at all"_s,
                           {item.row}};
    };
    std::vector<WorkCaution> cautions;
    int rate = 0;
    for (const WorkItem& item : plan.items) {
        if (stop) return {};
        const auto stream = flacStream(item.source);
        if (!stream) {
            cautions.push_back(caution(item, u" cannot be read as FLAC"_s));
            continue;
        }
        if (rate == 0) rate = stream->sampleRate;
        if (stream->channels > 2)
            cautions.push_back(caution(item, u" has more than two channels"_s));
        else if (stream->sampleRate != rate)
            cautions.push_back(caution(item, u" has another sample rate than the first file"_s));
    }
    return cautions;
}

/// Whatever is mounted where the files are will be unmounted by force.
std::vector<WorkCaution> aboutDrive(const WorkPlan& plan, const std::atomic<bool>&)
{
    if (plan.items.empty()) return {};
    const OptionalText disc = discOfVolume(path::deletingLastComponent(plan.files.first()), mountTable());
    if (!disc) return {{u"The files are not on the disc of a drive: nothing will be read"_s, {}}};
    if (discDrives().contains(*disc)) return {};
    return {{u"%1 is no drive for discs: it would be unmounted, and nothing read"_s.arg(*disc), {}}};
}

/// Files keep their names where nothing may be changed in their folder, and nobody is told.
std::vector<WorkCaution> closedFolders(const WorkPlan& plan, const std::atomic<bool>& stop)
{
    QMap<QString, QList<qsizetype>> folders;
    for (const WorkItem& item : plan.items)
        folders[path::deletingLastComponent(item.source)] += item.row;
    std::vector<WorkCaution> cautions;
    for (auto folder = folders.cbegin(); folder != folders.cend() && !stop; ++folder) {
        if (QFileInfo(folder.key()).isWritable()) continue;
        cautions.push_back(
            {u"The folder %1 cannot be written to: its files keep their names"_s.arg(folder.key()), folder.value()});
    }
    return cautions;
}

/// What one track becomes, or all of them together.
WorkItem trackItem(qsizetype row, const QString& file, const QString& folder, bool together)
{
    WorkItem item{.row = row, .source = file};
    const QString name = path::lastComponent(trackPathsInOrder({file}).first());
    item.outputs = {together ? path::appendingComponent(folder, u"audio.wav"_s)
                             : path::inFolderWithExtension(name, folder, u"wav"_s)};
    item.sharesOutput = together;
    item.existing = together ? WorkItem::Existing::Overwritten : WorkItem::Existing::Refused;
    return item;
}

QStringList withoutVirtual(QStringList files)
{
    files.removeIf(isInVirtualDiscFolder);
    return files;
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

void extracting(WorkPlan& plan, const OptionalText& destination, bool oneFile)
{
    plan.setPlaces(false, destination);
    plan.indivisible = true;
    plan.tools = {u"cdda2wav"_s, u"diskutil"_s};
    plan.inspect = aboutDrive;
    const TrackRange range = rangeOf(tracksInOrder(withoutVirtual(plan.files)));
    QStringList behind;
    for (qsizetype row = 0; row < plan.files.size(); ++row) {
        const QString& file = plan.files[row];
        if (isInVirtualDiscFolder(file))
            plan.passedOver += row;
        else if (range.holds(leadingNumber(path::lastComponent(file))))
            plan.items.push_back(trackItem(row, file, plan.folder, oneFile && range.first < range.last));
        else
            behind += path::lastComponent(file);
    }
    if (!behind.isEmpty())
        plan.cautions += u"%1, such as %2, lie behind a gap: read the tracks ahead of it first"_s.arg(
            counted(behind.size(), u"track"_s), behind.first());
    plan.words = plan.items.empty()
                     ? u"The desktop's own view of a disc cannot be read from: use Tracks of Disc instead"_s
                     : counted(qsizetype(plan.items.size()), u"track"_s) + u" to WAV"_s;
}

void renaming(WorkPlan& plan)
{
    planFiles(plan, {});
    plan.inspect = closedFolders;
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
    plan.indivisible = true;
    plan.tools = {u"dvda"_s, u"mkisofs"_s};
    plan.words = u"%1 to the image of a DVD-Audio disc"_s.arg(counted(plan.files.size(), u"file"_s));
}

} // namespace zolt::utilPlan
