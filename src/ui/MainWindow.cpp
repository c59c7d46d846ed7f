#include "ui/MainWindow.h"

#include "platform/errors/Exceptions.h"
#include "shell/ZOLTController.h"
#include "ui/DroppedPaths.h"
#include "ui/MenuActions.h"
#include "ui/Mnemonics.h"
#include "ui/TabOrder.h"
#include "ui/TextSides.h"
#include "ui/WindowPlaces.h"
#include "ui/pages/TabPage.h"
#include "ui_MainMenu.h"

#include <QCloseEvent>
#include <QMimeData>

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
    keepTextsOnTheirSide(*this);
    orderTabsByLayout(*centralWidget());
    menus_ = new MenuActions(*form_, controller, *this);
    tabView_->setObserver(this);
    controlChanged(*tabView_);
    restorePlace(*this, placeName);
    fitToScreen(*this);
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

TabPage* MainWindow::page() const
{
    return static_cast<TabPage*>(form_->tabView->currentWidget());
}

RunFoot& MainWindow::runFoot() const
{
    return *form_->runFoot;
}

void MainWindow::selectTab(int index)
{
    if (index == tabView_->selectedIndex()) return;
    guarded("select tab", [&] { tabView_->selectTabViewItemAtIndex(index); });
}

void MainWindow::controlChanged(Control&)
{
    form_->tabView->setCurrentIndex(tabView_->selectedIndex());
    menus_->followPage();
}

void MainWindow::setEnding(bool ending)
{
    ending_ = ending;
    for (int index = 0; ending && index < form_->tabView->count(); ++index)
        static_cast<TabPage*>(form_->tabView->widget(index))->stopLookingUp();
    keepPlace(*this, placeName); // on every way out
}

void MainWindow::present()
{
    bringToFront(*this);
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
    hide();
    controller_.windowWillClose();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedPaths(*event->mimeData()).isEmpty()) acceptAsCopy(*event);
}

void MainWindow::dropEvent(QDropEvent* event)
{
    // Beside the pages: as files that reach the program from outside, by the rules of the tab in front.
    const QStringList paths = droppedPaths(*event->mimeData());
    acceptAsCopy(*event);
    QMetaObject::invokeMethod(
        this, [this, paths] { guarded("drop", [&] { controller_.applicationOpenFiles(paths); }); },
        Qt::QueuedConnection);
}

} // namespace zolt
