#include "ui/MenuActions.h"

#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Desktop.h"
#include "platform/errors/Exceptions.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"
#include "tags/TagsTab.h"
#include "ui/GuideWindow.h"
#include "ui/MainWindow.h"
#include "ui/ViewChoices.h"
#include "ui/files/FilesPanel.h"
#include "ui/pages/TabPage.h"
#include "ui/queue/QueueCommands.h"
#include "ui_MainMenu.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>

namespace zolt {

MenuActions::MenuActions(Ui::MainMenu& form, ZOLTController& controller, MainWindow& window)
    : QObject(&window), form_(form), controller_(controller), window_(window)
{
    for (QMenu* const menu : form_.menuBar->findChildren<QMenu*>())
        menu->setToolTipsVisible(true);
    wireFile();
    wireEdit();
    wireView();
    wireQueue();
    wireHelp();
    wireTags();
}

void MenuActions::connectTo(QAction* action, std::function<void()> work)
{
    connect(action, &QAction::triggered, this, [work] { guarded("menu", work); });
}

void MenuActions::wireFile()
{
    connectTo(form_.addFilesAction, [this] { window_.page()->files()->addFiles(); });
    connectTo(form_.addFolderAction, [this] { window_.page()->files()->addFolders(); });
    connectTo(form_.commandAction, [this] { window_.page()->pressCommand(); });
    connectTo(form_.quitAction, [] { desktop().terminate(); });
    // The same key on the number pad.
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Enter), &window_), &QShortcut::activated, form_.commandAction,
            &QAction::trigger);
}

void MenuActions::selectAll()
{
    QWidget* const focus = QApplication::focusWidget();
    if (auto* const line = qobject_cast<QLineEdit*>(focus)) return line->selectAll();
    if (auto* const text = qobject_cast<QPlainTextEdit*>(focus)) return text->selectAll();
    window_.page()->files()->selectAll();
}

void MenuActions::wireEdit()
{
    connectTo(form_.selectAllAction, [this] { selectAll(); });
    connectTo(form_.removeAction, [this] { window_.page()->files()->removeSelected(); });
    connectTo(form_.removeDuplicatesAction, [this] { window_.page()->files()->removeDuplicates(); });
    connectTo(form_.clearListAction, [this] { window_.page()->files()->clear(); });
    connectTo(form_.filterAction, [this] { window_.page()->files()->openFilter(); });
    connectTo(form_.preferencesAction, [this] { controller_.showPreferencePanel(nullptr); });
}

void MenuActions::step(int tabs)
{
    const int count = int(controller_.tabView->items().size());
    window_.selectTab((controller_.tabView->selectedIndex() + tabs + count) % count);
}

void MenuActions::wireView()
{
    connectTo(form_.previousTabAction, [this] { step(-1); });
    connectTo(form_.nextTabAction, [this] { step(1); });
    form_.keepQueueAction->setChecked(viewChoices::keepsQueueInFront());
    form_.gatherReportsAction->setChecked(viewChoices::gathersReports());
    connectTo(form_.keepQueueAction, [this] { viewChoices::setKeepsQueueInFront(form_.keepQueueAction->isChecked()); });
    connectTo(form_.gatherReportsAction,
              [this] { viewChoices::setGathersReports(form_.gatherReportsAction->isChecked()); });
    connect(form_.viewMenu, &QMenu::aboutToShow, this,
            [this] { form_.gatherReportsAction->setChecked(viewChoices::gathersReports()); });
}

void MenuActions::wireQueue()
{
    ZOLTTaskQueue& queue = *controller_.taskQueue();
    connectTo(form_.queueAction, [&queue] { queueCommands::showPanel(queue); });
    // By the queue, not by its own mark: the panel's button changes that too.
    connectTo(form_.pauseAction, [&queue] { queue.setHeld(!queue.isHeld()); });
    connectTo(form_.cancelAllAction, [&queue] { queueCommands::cancelAll(queue); });
    connectTo(form_.removeErrorsAction, [&queue] { queue.removeAllErrors(nullptr); });
    connect(form_.queueMenu, &QMenu::aboutToShow, this, [this, &queue] {
        form_.pauseAction->setChecked(queue.isHeld());
        form_.cancelAllAction->setEnabled(queue.taskCount() > 0);
    });
    connect(form_.queueMenu, &QMenu::aboutToHide, this, [this] { form_.cancelAllAction->setEnabled(true); });
}

void MenuActions::wireHelp()
{
    connectTo(form_.guideAction, [this] { showGuide(&window_); });
    connectTo(form_.shortcutsAction, [this] { showShortcuts(*form_.menuBar, &window_); });
    connectTo(form_.aboutAction, [this] { window_.selectTab(int(controller_.tabView->items().size()) - 1); });
}

TagsTab* MenuActions::tagsTab() const
{
    return dynamic_cast<TagsTab*>(controller_.tagsTab);
}

void MenuActions::wireTags()
{
    connectTo(form_.loadCueSheetAction, [this] { tagsTab()->loadTagsFromCueSheet(nullptr); });
    connectTo(form_.undoWriteAction, [this] { tagsTab()->undoWrite(nullptr); });
    connect(form_.editMenu, &QMenu::aboutToShow, this, [this] { followTags(); });
}

void MenuActions::followTags()
{
    QAction* const load = form_.loadCueSheetAction;
    const bool inFront = tagsTab() && tagsTab()->validateMenuItem(load->text().remove(u'&'));
    load->setEnabled(inFront);
    form_.undoWriteAction->setEnabled(inFront && tagsTab()->canUndoWrite());
}

void MenuActions::followPage()
{
    followTags();
    const TabPage* const page = window_.page();
    const QString command = page ? page->commandName().remove(u'&') : QString(); // its letter is the page's
    form_.commandAction->setText(command.isEmpty() ? QStringLiteral("Start") : command);
    form_.commandAction->setEnabled(!command.isEmpty());
    const bool hasList = page && page->files();
    for (QAction* const action :
         {form_.addFilesAction, form_.addFolderAction, form_.selectAllAction, form_.removeAction,
          form_.removeDuplicatesAction, form_.clearListAction, form_.filterAction})
        action->setEnabled(hasList);
}

} // namespace zolt
