#include "shell/OutlookChecks.h"

#include "shell/Wording.h"

#include <QMap>
#include <QSet>

namespace zolt {

using namespace Qt::StringLiterals;
using Kind = OutlookProblem::Kind;

namespace {

OutlookProblems one(Kind kind, const QString& text, const QList<qsizetype>& rows = {}, const QStringList& details = {})
{
    return {{kind, text, rows, details}};
}

OutlookProblems checkRefusal(const OutlookSubject& subject)
{
    return subject.plan.refusal.isEmpty() ? OutlookProblems() : one(Kind::Refused, subject.plan.refusal);
}

OutlookProblems checkTools(const OutlookSubject& subject)
{
    OutlookProblems problems;
    for (const MissingTool& tool : subject.disk.missing(subject.plan.tools))
        problems.push_back({Kind::MissingTool, missingToolMessage(tool), {}, {}});
    return problems;
}

OutlookProblems checkFolder(const OutlookSubject& subject)
{
    const QString& folder = subject.plan.folder;
    if (folder.isEmpty() || subject.disk.exists(folder)) return {};
    return one(Kind::MissingFolder, u"The folder %1 is not there: choose another, or make it first"_s.arg(folder));
}

OutlookProblems checkPassedOver(const OutlookSubject& subject)
{
    const WorkPlan& plan = subject.plan;
    if (plan.passedOver.isEmpty()) return {};
    QSet<QString> kinds;
    for (const qsizetype row : plan.passedOver) {
        const QString extension = path::extension(plan.files[row]).toUpper();
        kinds += extension.isEmpty() ? u"files without an extension"_s : extension;
    }
    QStringList sorted = kinds.values();
    sorted.sort();
    return one(Kind::PassedOver,
               u"%1 will be passed over: this command is not for %2"_s.arg(counted(plan.passedOver.size(), u"file"_s),
                                                                           enumerated(sorted)),
               plan.passedOver);
}

OutlookProblems checkVanished(const OutlookSubject& subject)
{
    QStringList gone;
    QList<qsizetype> rows;
    for (const WorkItem& item : subject.plan.items) {
        if (subject.stop) return {};
        if (subject.disk.exists(item.source)) continue;
        gone += path::lastComponent(item.source);
        rows += item.row;
    }
    if (gone.isEmpty()) return {};
    return one(Kind::Vanished,
               gone.size() == 1
                   ? u"%1 is no longer there"_s.arg(gone.first())
                   : u"%1 are no longer there, first of them %2"_s.arg(counted(gone.size(), u"file"_s), gone.first()),
               rows);
}

/// The outputs of one way with what exists that are there.
OutlookProblems existing(const OutlookSubject& subject, WorkItem::Existing way, const QString& fate)
{
    QStringList names;
    QList<qsizetype> rows;
    for (const WorkItem& item : subject.plan.items) {
        if (subject.stop) return {};
        if (item.existing != way) continue;
        for (const QString& output : item.outputs) {
            if (!subject.disk.exists(output)) continue;
            names += path::lastComponent(output);
            if (!rows.endsWith(item.row)) rows += item.row;
        }
    }
    names.removeDuplicates();
    if (names.isEmpty()) return {};
    if (names.size() == 1) return one(Kind::Existing, u"%1 exists already and "_s.arg(names.first()) + fate, rows);
    return one(Kind::Existing,
               u"%1 of the outputs exist already and "_s.arg(names.size()) + fate + u", such as "_s + names.first(),
               rows);
}

OutlookProblems checkExisting(const OutlookSubject& subject)
{
    if (!knowsPlaces(subject.plan)) return {};
    OutlookProblems all = existing(subject, WorkItem::Existing::Refused, u"will not be overwritten"_s);
    const OutlookProblems replaced = existing(subject, WorkItem::Existing::Overwritten, u"will be overwritten"_s);
    all.insert(all.end(), replaced.begin(), replaced.end());
    return all;
}

/// The folders that are written to, each with the rows that go there.
QMap<QString, QList<qsizetype>> outputFolders(const WorkPlan& plan)
{
    QMap<QString, QList<qsizetype>> folders;
    for (const WorkItem& item : plan.items) {
        for (const QString& output : item.outputs)
            folders[path::deletingLastComponent(output)] += item.row;
    }
    return folders;
}

OutlookProblems checkUnwritable(const OutlookSubject& subject)
{
    if (!knowsPlaces(subject.plan)) return {};
    QStringList closed;
    QList<qsizetype> rows;
    const auto folders = outputFolders(subject.plan);
    for (auto folder = folders.begin(); folder != folders.end(); ++folder) {
        if (!subject.disk.exists(folder.key()) || subject.disk.isWritable(folder.key())) continue;
        closed += folder.key();
        rows += *folder;
    }
    if (closed.isEmpty()) return {};
    const QString which = closed.size() == 1 ? u"The folder %1"_s.arg(closed.first())
                                             : u"%1 folders, such as %2,"_s.arg(closed.size()).arg(closed.first());
    return one(Kind::Unwritable, which + u" cannot be written to: have the output written elsewhere"_s, rows);
}

/// A sentence that several files share stands once.
void addCaution(OutlookProblems& problems, const QString& text, const QList<qsizetype>& rows)
{
    const auto known =
        std::find_if(problems.begin(), problems.end(), [&](const auto& each) { return each.text == text; });
    if (known == problems.end())
        problems.push_back({Kind::Caution, text, rows, {}});
    else
        known->rows += rows;
}

OutlookProblems checkCautions(const OutlookSubject& subject)
{
    OutlookProblems problems;
    for (const QString& caution : subject.plan.cautions)
        addCaution(problems, caution, {});
    for (const WorkItem& item : subject.plan.items) {
        if (!item.caution.isEmpty()) addCaution(problems, item.caution, {item.row});
    }
    if (!subject.plan.inspect) return problems;
    for (const WorkCaution& caution : subject.plan.inspect(subject.plan, subject.stop))
        addCaution(problems, caution.text, caution.rows);
    return problems;
}

} // namespace

const std::vector<OutlookCheck>& outlookChecks()
{
    static const std::vector<OutlookCheck> checks{checkRefusal,  checkTools,      checkFolder,   checkPassedOver,
                                                  checkVanished, checkCollisions, checkExisting, checkUnwritable,
                                                  checkRoom,     checkCautions};
    return checks;
}

bool knowsPlaces(const WorkPlan& plan)
{
    return !plan.needsFolder || !plan.folder.isEmpty();
}

} // namespace zolt
