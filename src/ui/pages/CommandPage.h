// The page of any tab with a list and a command: files left, choices right, the one action bottom right.
#pragma once

#include "shell/Outlook.h"
#include "ui/LatestJob.h"
#include "ui/pages/ChoiceMemory.h"
#include "ui/pages/LeftOut.h"
#include "ui/pages/TabPage.h"

#include <QTimer>

#include <memory>
#include <vector>

namespace Ui {
class CommandPage;
}

namespace zolt {

class BaseTab;
class DestinationField;
class FilesPanel;

/// What is special of a tab's page.
struct PageForm
{
    QString command;                 ///< the words on the action, with a mnemonic
    void (*setUp)(QWidget& choices); ///< lays the choices out: each widget is named as its outlet
};

/// What a line of a tab's own says.
struct LiveWords
{
    LiveWords(QString said = {}, QString more = {}) : text(std::move(said)), toolTip(std::move(more)) {}

    QString text;
    QString toolTip; ///< empty for the label's own
};

/// Run on a thread of its own, which may read files; it should end early once `stop` is set.
using LiveText = std::function<LiveWords(const std::atomic<bool>& stop)>;
/// Asked on the main thread after each change of list or choices; takes along what its text is made from.
using LiveLine = std::function<LiveText()>;

/// Binds the tab's outlets to the widgets of their names, shows and keeps what the tab holds, and foresees what its
/// command would do. A DestinationField named "destination" among the choices is the tab's destination. Main thread.
class CommandPage : public TabPage
{
public:
    /// @param tab  outlives this object's use
    CommandPage(BaseTab& tab, const PageForm& form, QWidget* parent = nullptr);
    ~CommandPage() override;

    /// From now on the label of that name among the choices says what the line says. @return this page
    CommandPage* withLiveLine(const QString& label, LiveLine line);
    /// The words on the action follow the choices. @param words  asked after each change; with a mnemonic
    CommandPage* withCommand(std::function<QString()> words);

    FilesPanel* files() const override;
    /// Presses the tab's command, unless files still come in, all are left out, or a tool is missing. Files that are
    /// left out stay in the list.
    void pressCommand() override;
    QString commandName() const override;
    void stopLookingUp() override;

protected:
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    BaseTab& tab() const { return tab_; }
    /// The widget that the form was laid out on.
    QWidget& choices() const { return *choices_; }
    /// List or choices have changed: asks again for everything that follows from them.
    void refresh();
    /// What has to come before a press, told in the action's tool tip; empty where nothing has to.
    virtual QString whatIsWanted() const;

private:
    struct Line;
    void bindOutlets();
    void bindDestination();
    DestinationField* destination() const;
    void bindOutlook();
    void restoreChoices();
    void followList();
    void lookAhead();
    void show(const Outlook& outlook, const QStringList& files);
    QList<qsizetype> rowsNow(const QList<qsizetype>& rows) const;
    void refreshLines();
    WorkPlan remainingPlan() const;

    const std::unique_ptr<Ui::CommandPage> form_;
    BaseTab& tab_;
    QWidget* choices_ = nullptr;
    std::function<QString()> command_;
    QTimer pause_;
    LatestJob lookingAhead_;
    QStringList foreseen_; ///< the list that the outlook shown is about
    std::vector<std::unique_ptr<Line>> lines_;
    std::unique_ptr<ChoiceMemory> memory_;
    LeftOut leftOut_;
};

} // namespace zolt
