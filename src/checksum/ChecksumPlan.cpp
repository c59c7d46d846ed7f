#include "checksum/ChecksumPlan.h"

#include "checksum/ChecksumKinds.h"
#include "checksum/CreateMD5Task.h"
#include "checksum/CreateST5Task.h"
#include "checksum/Fingerprint.h"
#include "platform/files/FileNames.h"
#include "shell/Constants.h"
#include "shell/Wording.h"

#include <QHash>
#include <QSet>

namespace zolt::checksumPlan {

using namespace Qt::StringLiterals;
using namespace checksumKinds;

namespace {

using C = Constants;
using ToolsByKind = QHash<QString, QStringList>;

/// One item a file whose kind has tools, or needs none; the others are passed over.
void planByKind(WorkPlan& plan, const ToolsByKind& tools, QString (*kindOfFile)(const QString&))
{
    for (qsizetype row = 0; row < plan.files.size(); ++row) {
        const auto found = tools.find(kindOfFile(plan.files[row]));
        if (found == tools.end()) {
            plan.passedOver.append(row);
            continue;
        }
        plan.items.push_back({.row = row, .source = plan.files[row]});
        plan.tools += *found;
    }
    plan.tools.removeDuplicates();
}

QString listName(const QString& kind)
{
    if (kind == C::ST5) return CreateST5Task::defaultName;
    return kind == C::FFP ? fingerprintListName : CreateMD5Task::defaultName;
}

QStringList filesOfList(const QStringList& files, const QString& kind)
{
    if (kind == C::ST5) return hashableFiles(files);
    return kind == C::FFP ? flacFiles(files) : files;
}

void cautionAboutFolders(WorkPlan& plan)
{
    const QString folder = path::deletingLastComponent(plan.items.back().source);
    for (WorkItem& item : plan.items) {
        if (path::deletingLastComponent(item.source) != folder)
            item.caution = u"%1 lies in another folder than the last file, so the list will lack it"_s.arg(
                path::lastComponent(item.source));
    }
}

void cautionAboutNames(WorkPlan& plan)
{
    QSet<QString> names;
    for (WorkItem& item : plan.items) {
        const QString name = path::lastComponent(item.source);
        if (names.contains(name))
            item.caution = u"%1 stands in the list more than once: names are listed without their folders"_s.arg(name);
        names += name;
    }
}

void cautionAboutBytes(WorkPlan& plan)
{
    for (WorkItem& item : plan.items) {
        const QString name = path::lastComponent(item.source), readable = readableName(name);
        if (name == readable) continue;
        item.caution = u"The name of %1 is not UTF-8: no list can name it so that it is found again"_s.arg(readable);
    }
}

} // namespace

QString goodFor(const QString& kind)
{
    if (kind == C::ST5)
        return u"ST5 compares the audio alone: it holds for the same recording in another format, whatever its tags."_s;
    if (kind == C::FFP)
        return u"FFP reads what each FLAC file stores about its own audio: quick to make, and tags may change."_s;
    return u"MD5 covers every byte of a file of any kind: it no longer matches once tags are changed."_s;
}

void testing(WorkPlan& plan)
{
    planByKind(plan, {{C::FLAC, {u"flac"_s}}, {C::APE, {u"mac"_s}}, {C::WV, {u"wvunpack"_s}}, {C::TTA, {u"ttaenc"_s}}},
               kindOf);
    if (!plan.items.empty()) plan.words = filesInWords(plan.sources()) + u" to test"_s;
}

void verifying(WorkPlan& plan)
{
    planByKind(plan, {{C::MD5, {}}, {C::ST5, {u"shntool"_s}}, {C::FFP, {u"metaflac"_s, u"flac"_s}}}, listKind);
    if (!plan.items.empty()) plan.words = counted(qsizetype(plan.items.size()), u"list"_s) + u" to verify"_s;
}

void creating(WorkPlan& plan, const QString& kind, bool beside)
{
    const QStringList files = filesOfList(plan.files, kind);
    const QSet<QString> listed(files.begin(), files.end());
    const QString folder = beside && !files.isEmpty() ? path::deletingLastComponent(files.first()) : QString();
    const QStringList outputs = beside ? QStringList{path::appendingComponent(folder, listName(kind))} : QStringList();
    for (qsizetype row = 0; row < plan.files.size(); ++row) {
        if (!listed.contains(plan.files[row])) {
            plan.passedOver.append(row);
            continue;
        }
        plan.items.push_back({.row = row,
                              .source = plan.files[row],
                              .outputs = outputs,
                              .sharesOutput = true,
                              .existing = WorkItem::Existing::Overwritten});
    }
    if (plan.items.empty()) return;
    if (kind == C::ST5) plan.tools = {u"shntool"_s};
    if (kind == C::FFP) plan.tools = {u"metaflac"_s};
    plan.words = filesInWords(files) + u" into "_s + listName(kind);
    kind == C::ST5 ? cautionAboutFolders(plan) : cautionAboutNames(plan);
    cautionAboutBytes(plan);
}

} // namespace zolt::checksumPlan
