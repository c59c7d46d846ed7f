#include "shell/OutlookChecks.h"

#include <QHash>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// One output and the sources that would be written to it.
struct SharedOutput
{
    QString output;
    std::vector<const WorkItem*> items;
};

class Collisions
{
public:
    explicit Collisions(const OutlookSubject& subject) : subject_(subject)
    {
        for (const WorkItem& item : subject.plan.items) {
            if (item.sharesOutput) continue;
            for (const QString& output : item.outputs)
                enter(item, output);
        }
    }

    OutlookProblems problems() const
    {
        if (shared_.isEmpty()) return {};
        QList<qsizetype> rows;
        QStringList details;
        for (const QString& place : shared_)
            tell(outputs_[place], rows, details);
        return {{OutlookProblem::Kind::Collision, text(), rows, details}};
    }

private:
    void enter(const WorkItem& item, const QString& output)
    {
        SharedOutput& entry = outputs_[placeOf(output)];
        if (entry.items.empty()) entry.output = output;
        entry.items.push_back(&item);
        if (entry.items.size() == 2) shared_ += placeOf(output);
    }

    /// The output by the true place of its folder, however it was reached.
    QString placeOf(const QString& output)
    {
        const QString folder = path::deletingLastComponent(output);
        if (folder.isEmpty()) return output;
        auto known = folders_.constFind(folder);
        if (known == folders_.constEnd()) known = folders_.insert(folder, subject_.disk.trueFolder(folder));
        return path::appendingComponent(*known, path::lastComponent(output));
    }

    static void tell(const SharedOutput& shared, QList<qsizetype>& rows, QStringList& details)
    {
        const QString& first = shared.items.front()->source;
        for (auto item = shared.items.begin() + 1; item != shared.items.end(); ++item) {
            rows += (*item)->row;
            details += u"%1 and %2 would both be written to %3"_s.arg(first, (*item)->source, shared.output);
        }
    }

    QString text() const
    {
        const SharedOutput& first = outputs_[shared_.first()];
        const QString name = path::lastComponent(first.output);
        if (shared_.size() == 1)
            return u"%1 files in the list would be written to one %2: only the first one can be"_s
                .arg(first.items.size())
                .arg(name);
        return u"%1 outputs would each come from several files in the list, such as %2: only the first one can be written"_s
            .arg(shared_.size())
            .arg(name);
    }

    const OutlookSubject& subject_;
    QHash<QString, QString> folders_; ///< to their true places
    QHash<QString, SharedOutput> outputs_;
    QStringList shared_; ///< keys of outputs_, in list order
};

} // namespace

OutlookProblems checkCollisions(const OutlookSubject& subject)
{
    return Collisions(subject).problems();
}

} // namespace zolt
