#include "shell/Outlook.h"

#include "platform/files/FileNames.h"
#include "shell/OutlookChecks.h"
#include "shell/Util.h"
#include "shell/Wording.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString place(const WorkPlan& plan)
{
    if (plan.needsFolder) return plan.folder.isEmpty() ? u" in a folder that you choose"_s : u" in "_s + plan.folder;
    if (!plan.besideSources) return QString();
    return plan.items.size() == 1 ? u" beside its source"_s : u" beside their sources"_s;
}

QString deletion(const WorkPlan& plan)
{
    if (!plan.deletes) return QString();
    const auto count = qsizetype(plan.items.size());
    const QString originals = count == 1 ? u"original"_s : counted(count, u"original"_s);
    const bool toTrash = Util::deletesToTrash() && !plan.neverToTrash;
    return (toTrash ? u", and move the %1 to the trash"_s : u", and delete the %1 for good"_s).arg(originals);
}

} // namespace

QStringList Outlook::sentences() const
{
    QStringList all;
    for (const OutlookProblem& each : problems)
        all += each.text;
    return all;
}

const OutlookProblem* Outlook::problem(OutlookProblem::Kind kind) const
{
    const auto found =
        std::find_if(problems.begin(), problems.end(), [kind](const auto& each) { return each.kind == kind; });
    return found == problems.end() ? nullptr : &*found;
}

QString intentionOf(const WorkPlan& plan)
{
    if (plan.files.isEmpty() && plan.items.empty()) return QString();
    if (plan.items.empty()) return plan.words.isEmpty() ? u"Nothing in the list can be used here"_s : plan.words;
    return plan.words + readableName(place(plan)) + deletion(plan);
}

Outlook outlookOf(const WorkPlan& plan, const OutlookDisk& disk, const std::atomic<bool>& stop)
{
    Outlook outlook{.intention = intentionOf(plan), .problems = {}};
    if (outlook.intention.isEmpty()) return outlook;
    const std::int64_t bytes = plan.estimate && !plan.items.empty() ? plan.estimate(plan, stop) : 0;
    if (bytes > 0) outlook.intention += u"; about %1 in all"_s.arg(sizeInWords(bytes));
    for (const OutlookCheck check : outlookChecks()) {
        if (stop) break;
        const auto found = check({plan, disk, stop});
        outlook.problems.insert(outlook.problems.end(), found.begin(), found.end());
    }
    for (OutlookProblem& problem : outlook.problems) {
        problem.text = readableName(problem.text);
        if (plan.indivisible && problem.kind != OutlookProblem::Kind::PassedOver) problem.rows.clear();
    }
    return outlook;
}

} // namespace zolt
