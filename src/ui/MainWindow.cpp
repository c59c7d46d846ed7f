#include "ui/MainWindow.h"

#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Desktop.h"
#include "platform/errors/Exceptions.h"
#include "shell/ZOLTController.h"
#include "ui/Mnemonics.h"
#include "ui/WindowPlaces.h"
#include "ui/files/FilesPanel.h"
#include "ui/pages/TabPage.h"
#include "ui_MainMenu.h"

#include <QCloseEvent>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int tabKeys = 9;                                  // Ctrl+1 to Ctrl+9
const QSet<QChar> windowKeys{u'f', u'e', u'v', u'q', u'h'}; // the menus', which stand beside every page
const QString placeName = u"main"_s;

} // namespace

MainWindow::MainWindow(ZOLTController& controller, const PageBuilders& pages)
    : form_(std::make_unique<Ui::MainMenu>()), controller_(controller), tabView_(controller.tabView)
{
    form_->setupUi(this);
    setAcceptDrops(true);
    for (std::size_t index = 0; index < tabView_->items().size(); ++index)
        addPage(int(index), pages);
    wireMenus();
    tabView_->setObserver(this);
    controlChanged(*tabView_);
    restorePlace(*this, placeName);
    connect(form_->tabView, &QTabWidget::currentChanged, this, [this](int index) { selectTab(index); });
}

MainWindow::~MainWindow()
{
    tabView_->setObserver(nullptr);
}

void MainWindow::addPage(int index, const PageBuilders& pages)
{
    const QString label = tabView_->items()[std::size_t(index)]->label();
    const auto builder = pages.value(label);
    TabPage* const page = builder ? builder(form_->tabView) : new TabPage(form_->tabView);
    form_->tabView->addTab(page, label);
    assignMnemonics(*page, windowKeys);
    QAction* const action = form_->viewMenu->addAction(label, this, [this, index] { selectTab(index); });
    if (index < tabKeys) action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + index)));
}

void MainWindow::wireMenus()
{
    const auto connectTo = [this](QAction* action, const char* where, std::function<void()> work) {
        connect(action, &QAction::triggered, this, [where, work] { guarded(where, work); });
    };
    connectTo(form_->addFilesAction, "add files", [this] {
        if (page()->files()) page()->files()->addFiles();
    });
    connectTo(form_->commandAction, "command", [this] { page()->pressCommand(); });
    connectTo(form_->quitAction, "quit", [] { desktop().terminate(); });
    connectTo(form_->queueAction, "queue", [this] { controller_.taskQueue()->panel()->makeKeyAndOrderFront(); });
    // The same key on the number pad.
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Enter), this), &QShortcut::activated, form_->commandAction,
            &QAction::trigger);
}

TabPage* MainWindow::page() const
{
    return static_cast<TabPage*>(form_->tabView->currentWidget());
}

void MainWindow::selectTab(int index)
{
    if (index == tabView_->selectedIndex()) return;
    guarded("select tab", [&] { tabView_->selectTabViewItemAtIndex(index); });
}

void MainWindow::controlChanged(Control&)
{
    form_->tabView->setCurrentIndex(tabView_->selectedIndex());
    const QString command = page() ? page()->commandName() : QString();
    form_->commandAction->setText(command.isEmpty() ? u"&Start"_s : command);
    form_->commandAction->setEnabled(!command.isEmpty());
    form_->addFilesAction->setEnabled(!command.isEmpty());
}

void MainWindow::present()
{
    show();
    if (isMinimized()) showNormal();
    raise();
    activateWindow();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    guarded("close", [this] { askToClose(); });
}

void MainWindow::askToClose()
{
    if (asking_ || ending_) return;
    asking_ = true;
    const bool closes = controller_.windowShouldClose();
    asking_ = false;
    if (!closes) return;
    keepPlace(*this, placeName);
    hide();
    controller_.windowWillClose();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    // Beside the list: as files that reach the program from outside, by the rules of the tab in front.
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) paths += url.toLocalFile();
    }
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, paths] { guarded("drop", [&] { controller_.applicationOpenFiles(paths); }); },
        Qt::QueuedConnection);
}

} // namespace zolt
