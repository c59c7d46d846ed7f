#include "ui/pages/CommandPage.h"

#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/BaseTab.h"
#include "shell/PreferencesController.h"
#include "ui/PlainText.h"
#include "ui/binding/Bindings.h"
#include "ui/files/FileListView.h"
#include "ui/files/FilesPanel.h"
#include "ui/pages/DeletionChoice.h"
#include "ui/pages/DestinationField.h"
#include "ui/panels/AlertContext.h"
#include "ui_CommandPage.h"

#include <QEvent>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int milliseconds = 60; // several changes in a row are looked at once

QHash<int, QString> marksOf(const Outlook& outlook)
{
    QHash<int, QString> marks;
    for (const OutlookProblem& problem : outlook.problems) {
        for (const qsizetype row : problem.rows) {
            QString& mark = marks[int(row)];
            mark += (mark.isEmpty() ? QString() : u"\n"_s) + problem.text;
        }
    }
    return marks;
}

DestinationField::Place placeOf(const WorkPlan& plan)
{
    if (plan.needsFolder) return DestinationField::Place::Folder;
    return plan.besideSources ? DestinationField::Place::BesideSources : DestinationField::Place::None;
}

} // namespace

/// A label that says what a tab's own line says.
struct CommandPage::Line
{
    QLabel& label;
    LiveLine ask;
    QString ownToolTip = label.toolTip();
    LatestJob reading = {};

    void refresh()
    {
        reading.start([this, text = ask()](const std::atomic<bool>& stop) {
            const LiveWords said = text ? text(stop) : LiveWords();
            return [this, said] { show(said); };
        });
    }
    void show(const LiveWords& said)
    {
        label.setText(said.text);
        label.setToolTip(said.toolTip.isEmpty() ? ownToolTip : plainToolTip(said.toolTip));
    }
};

CommandPage::CommandPage(BaseTab& tab, const PageForm& form, QWidget* parent)
    : TabPage(parent), form_(std::make_unique<Ui::CommandPage>()), tab_(tab)
{
    form_->setupUi(this);
    setAcceptDrops(true);
    choices_ = &form_->choicesArea->fill(form.setUp);
    form_->commandButton->setText(form.command);
    pause_.setSingleShot(true);
    pause_.setInterval(milliseconds);
    connect(&pause_, &QTimer::timeout, this, [this] { guarded("outlook", [this] { lookAhead(); }); });
    connect(form_->commandButton, &QPushButton::clicked, this,
            [this] { guarded("command", [this] { pressCommand(); }); });
    bindOutlets();
    bindDestination();
    bindOutlook();
    restoreChoices();
    form_->filesPanel->setChanged([this] { followList(); });
    form_->filesPanel->attach(tab_);
    // What the line says of deletion is another thing then.
    NotificationCenter::standard().addObserver(this, PreferencesController::deletionChanged, nullptr,
                                               [this](const Notification&) { refresh(); });
}

CommandPage::~CommandPage()
{
    NotificationCenter::standard().removeObserver(this, PreferencesController::deletionChanged, nullptr);
}

void CommandPage::bindOutlets()
{
    Bindings bindings(*choices_);
    bindings.setChanged([this] { refresh(); });
    for (const Outlet& outlet : tab_.outlets()) {
        const auto* const table = std::get_if<std::shared_ptr<Table>>(&outlet.model);
        if (const auto* const around = std::get_if<std::shared_ptr<ScrollView>>(&outlet.model))
            bindWidget(form_->filesPanel->list(), *around, {});
        else if (!table || *table != tab_.tableView)
            bindings.bind(outlet); // the list has its panel
    }
    auto* const deletion = static_cast<DeletionChoice*>(choices_->findChild<QComboBox*>(u"deletionChoice"_s));
    if (deletion) deletion->follow(*choices_->findChild<QAbstractButton*>(u"deleteOriginalsButton"_s));
}

DestinationField* CommandPage::destination() const
{
    return static_cast<DestinationField*>(choices_->findChild<QWidget*>(u"destination"_s));
}

void CommandPage::bindDestination()
{
    if (!destination()) return;
    destination()->setChanged([this](const QString& folder) {
        tab_.setDestination(folder.isEmpty() ? OptionalText() : OptionalText(folder));
        refresh();
    });
}

void CommandPage::restoreChoices()
{
    Outlets kept = tab_.outlets();
    std::erase_if(kept, [this](const Outlet& outlet) {
        const auto* const widget = choices_->findChild<QWidget*>(outlet.name);
        return widget && widget->property("notKept").toBool();
    });
    memory_ = std::make_unique<ChoiceMemory>(tab_.tabViewItem->label(), kept);
    for (const Outlet& outlet : tab_.outlets()) {
        const auto* const widget = choices_->findChild<QWidget*>(outlet.name);
        const QString choice = widget ? widget->property("choiceNotKept").toString() : QString();
        if (!choice.isEmpty()) memory_->passOver(outlet.name, choice);
    }
    memory_->restore();
    if (destination()) destination()->setFolder(memory_->text(u"destination"_s));
    tab_.displayRelevantOptions();
}

void CommandPage::bindOutlook()
{
    form_->outlook->setLeaveOut([this](const QList<qsizetype>& rows) {
        leftOut_.add(foreseen_, rows);
        refresh();
    });
    form_->outlook->setTakeBack([this] {
        leftOut_.clear();
        refresh();
    });
    form_->outlook->setShowRows([this](const QList<qsizetype>& rows) { form_->filesPanel->selectRows(rowsNow(rows)); });
}

CommandPage* CommandPage::withLiveLine(const QString& label, LiveLine line)
{
    auto* const shown = choices_->findChild<QLabel*>(label);
    if (!shown) throw AssertionException(u"The page has no label \"%1\"."_s.arg(label));
    shown->setTextFormat(Qt::PlainText);
    lines_.push_back(std::unique_ptr<Line>(new Line{*shown, std::move(line)}));
    refresh();
    return this;
}

CommandPage* CommandPage::withCommand(std::function<QString()> words)
{
    command_ = std::move(words);
    refresh();
    return this;
}

FilesPanel* CommandPage::files() const
{
    return form_->filesPanel;
}

QString CommandPage::commandName() const
{
    return form_->commandButton->text();
}

void CommandPage::changeEvent(QEvent* event)
{
    TabPage::changeEvent(event);
    // While the window was elsewhere, files may have come or gone.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) refresh();
}

void CommandPage::followList()
{
    const QStringList files = tab_.fileNames().copy();
    leftOut_.keepOnly(files);
    refresh();
}

void CommandPage::refresh()
{
    if (command_ && commandName() != command_()) form_->commandButton->setText(command_());
    const QString wanted = whatIsWanted();
    form_->commandButton->setEnabled(wanted.isEmpty());
    form_->commandButton->setToolTip(wanted.isEmpty() ? u"Start with the files in the list (Ctrl+Return)"_s : wanted);
    pause_.start();
}

QString CommandPage::whatIsWanted() const
{
    if (tab_.isTakingIn()) return u"Files are still coming in"_s;
    return tab_.fileNames().isEmpty() ? u"Add files first"_s : QString();
}

WorkPlan CommandPage::remainingPlan() const
{
    return tab_.workPlanWithout(leftOut_.rowsIn(tab_.fileNames().copy()));
}

void CommandPage::lookAhead()
{
    const WorkPlan plan = remainingPlan();
    if (destination()) {
        destination()->setPlace(placeOf(plan));
        memory_->keepText(u"destination"_s, destination()->folder());
    }
    memory_->keep();
    lookingAhead_.start([this, plan](const std::atomic<bool>& stop) {
        const Outlook outlook = outlookOf(plan, LocalDisk(), stop);
        return [this, outlook, files = plan.files] { show(outlook, files); };
    });
    refreshLines();
}

/// The outlook's rows in the present list, which may have changed since.
QList<qsizetype> CommandPage::rowsNow(const QList<qsizetype>& rows) const
{
    LeftOut meant;
    meant.add(foreseen_, rows);
    return meant.rowsIn(tab_.fileNames().copy());
}

void CommandPage::show(const Outlook& outlook, const QStringList& files)
{
    if (files != tab_.fileNames().copy()) return; // the next one is on its way
    foreseen_ = files;
    form_->outlook->show(outlook, leftOut_.count());
    if (destination()) destination()->setMissing(outlook.problem(OutlookProblem::Kind::MissingFolder));
    form_->filesPanel->setMarks(marksOf(outlook), leftOut_.rowsIn(tab_.fileNames().copy()));
}

void CommandPage::refreshLines()
{
    for (const auto& line : lines_)
        guarded("live line", [&] { line->refresh(); });
}

void CommandPage::pressCommand()
{
    if (tab_.fileNames().isEmpty() || tab_.isTakingIn()) return;
    const WorkPlan plan = remainingPlan();
    if (!plan.refusal.isEmpty()) {
        panels().runAlert(plan.refusal, QString(), u"OK"_s);
        return;
    }
    const QList<qsizetype> aside = leftOut_.rowsIn(plan.files);
    if (aside.size() == plan.files.size()) {
        panels().runAlert(u"All files are left out"_s, u"Take them back, or add others."_s, u"OK"_s);
        return;
    }
    if (!toolsAreThere(plan.tools)) return;
    const AlertContext context(intentionOf(plan)); // a question about deletion says what becomes of what
    tab_.executeCommandWithout(aside);
}

void CommandPage::stopLookingUp()
{
    pause_.stop();
    lookingAhead_.cancel();
    for (const auto& line : lines_)
        line->reading.cancel();
    form_->filesPanel->stopLookingUp();
}

void CommandPage::dragEnterEvent(QDragEnterEvent* event)
{
    form_->filesPanel->list().dragEnterEvent(event);
}

void CommandPage::dragMoveEvent(QDragMoveEvent* event)
{
    form_->filesPanel->list().dragMoveEvent(event);
}

void CommandPage::dragLeaveEvent(QDragLeaveEvent* event)
{
    form_->filesPanel->list().dragLeaveEvent(event);
}

void CommandPage::dropEvent(QDropEvent* event)
{
    form_->filesPanel->list().dropEvent(event);
}

} // namespace zolt
