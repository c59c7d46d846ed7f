#include "shell/PreferencesController.h"

#include "platform/controls/DefaultsBinding.h"
#include "platform/desktop/Interfaces.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"
#include "shell/Log.h"
#include "shell/Util.h"
#include "shntool/SHNtoolOutputNamingFormatParser.h"

#include <thread>

namespace zolt {

using namespace Qt::StringLiterals;
using C = Constants;

namespace {

const QString threadsKey = u"maxThreads"_s, deletionKey = u"trashOrDelete"_s, formatKey = u"shntoolNamesFormat"_s;

constexpr int fewestThreads = 1; // with none, every task would wait
constexpr double padding = 32.0; // units around what stands on a pane

QString previewLine()
{
    return SHNtoolOutputNamingFormatParser().getFormattedLineWithNameTimeTrackNumber(u"FileName"_s, u"01:00:00"_s,
                                                                                     u"01"_s);
}

/// Whoever shows the setting follows, the preferences too.
void tellOfDeletion()
{
    NotificationCenter::standard().post({.name = PreferencesController::deletionChanged});
}

} // namespace

int PreferencesController::mostThreads()
{
    return std::max(8, int(std::thread::hardware_concurrency()));
}

PreferencesController::PreferencesController()
    : maxThreadsStepper(std::make_shared<Stepper>(fewestThreads, mostThreads(), fewestThreads)),
      trashOrDelete(std::make_shared<Matrix>(2, 1, QStringList{u"Delete for good"_s, u"Move to the trash"_s}))
{
    for (const QString& name : {C::GeneralTextForPrefs, C::MetadataTextForPrefs})
        preferencesTab_->addTabViewItem(std::make_shared<TabViewItem>(name));
    bindControls();
    loadInterface(u"Preferences"_s, this);
}

PreferencesController::~PreferencesController()
{
    NotificationCenter::standard().removeObserver(this, C::ZOLTMaxThreadsChangedNotification, nullptr);
    NotificationCenter::standard().removeObserver(this, deletionChanged, nullptr);
}

void PreferencesController::bindControls()
{
    bindToDefault(*maxThreadsStepper, threadsKey);
    bindToDefault(*shnlenTrackListingFormat, formatKey);
    bindToDefault(*trashOrDelete, deletionKey);
    showMaxThreads(maxThreadsStepper->intValue());
    showDeletion();
    maxThreadsStepper->setAction([this] { maxThreadsChanged(maxThreadsStepper.get()); });
    shnlenTrackListingFormat->setAction([this] { controlTextDidChange(*shnlenTrackListingFormat); });
    trashOrDelete->setAction([] { tellOfDeletion(); });
    restoreGeneralButton->setAction([this] { restoreGeneral(); });
    restoreMetadataButton->setAction([this] { restoreMetadata(); });
    // The queue's panel sets the same number.
    NotificationCenter::standard().addObserver(this, C::ZOLTMaxThreadsChangedNotification, nullptr,
                                               [this](const Notification& notification) {
                                                   const int* tasks = std::any_cast<int>(&notification.object);
                                                   if (tasks) showMaxThreads(*tasks);
                                               });
    // The pages set it too.
    NotificationCenter::standard().addObserver(this, deletionChanged, nullptr, [this](const Notification&) {
        showDeletion();
        showComplaint();
    });
}

void PreferencesController::initData()
{
    try {
        showPreview();
    } catch (const PlatformException& fault) { // a format without a character has no line
        qCWarning(shellLog).noquote() << "The format of length reports gives no line:" << fault.reason();
    }
}

void PreferencesController::initToolbar()
{
    toolbar_ = std::make_shared<Toolbar>(u"PrefsToolbar"_s);
    toolbar_->setDelegate(this);
    window_->setToolbar(toolbar_);
    toolbar_->setSelectedItemIdentifier(C::GeneralTextForPrefs);
    initData();
    showComplaint();
    if (UserDefaults::standard().integerForKey(threadsKey) < fewestThreads) maxThreadsChanged(nullptr);
}

QStringList PreferencesController::toolbarDefaultItemIdentifiers(const Toolbar&)
{
    return {C::GeneralTextForPrefs, C::MetadataTextForPrefs};
}

QStringList PreferencesController::toolbarAllowedItemIdentifiers(const Toolbar& toolbar)
{
    return toolbarDefaultItemIdentifiers(toolbar);
}

QStringList PreferencesController::toolbarSelectableItemIdentifiers(const Toolbar& toolbar)
{
    return toolbarDefaultItemIdentifiers(toolbar);
}

std::shared_ptr<ToolbarItem>
PreferencesController::toolbarItemForItemIdentifierWillBeInsertedIntoToolbar(Toolbar& toolbar,
                                                                             const QString& identifier, bool)
{
    if (!toolbarAllowedItemIdentifiers(toolbar).contains(identifier)) return nullptr;
    const auto item = std::make_shared<ToolbarItem>(ToolbarItem{identifier, identifier, identifier.toLower()});
    item->action = [this](const ToolbarItem& clicked) { showPreferencesTab(clicked); };
    if (identifier == C::GeneralTextForPrefs) resizePreferencesPane();
    return item;
}

void PreferencesController::showPreferencesTab(const ToolbarItem& item)
{
    preferencesTab_->selectTabViewItemWithLabel(item.identifier);
    const auto view = preferencesTab_->selectedTabViewItem()->view();
    view->setHidden(true);
    resizePreferencesPane();
    view->setHidden(false);
}

void PreferencesController::maxThreadsChanged(Sender)
{
    NotificationCenter::standard().post({C::ZOLTMaxThreadsChangedNotification, nullptr, maxThreadsStepper->intValue()});
    showComplaint();
}

void PreferencesController::controlTextDidChange(const Control& control)
{
    if (&control != shnlenTrackListingFormat.get()) return;
    showComplaint();
    showPreview();
}

void PreferencesController::resizePreferencesPane()
{
    QRectF all;
    for (const QRectF& frame : preferencesTab_->selectedTabViewItem()->view()->subviewFrames())
        all |= frame;
    QRectF frame = window_->frame();
    const double height = all.height() + toolbarHeightForWindow(*window_) + Window::titleBarHeight + padding;
    const double lower = frame.y() - (height - frame.height());
    window_->setFrame({frame.x(), lower, frame.width(), height}, true, true);
}

double PreferencesController::toolbarHeightForWindow(const Window& window)
{
    if (!window.toolbar() || !window.toolbar()->isVisible()) return 0.0;
    return Window::contentRectForFrameRect(window.frame()).height() - window.contentViewFrame().height();
}

void PreferencesController::restoreGeneral()
{
    UserDefaults& settings = UserDefaults::standard();
    for (const QString& key : {threadsKey, deletionKey})
        settings.remove(key);
    maxThreadsStepper->setIntValue(settings.integerForKey(threadsKey));
    maxThreadsChanged(nullptr);
    tellOfDeletion();
}

void PreferencesController::restoreMetadata()
{
    UserDefaults::standard().remove(formatKey);
    shnlenTrackListingFormat->setStringValue(UserDefaults::standard().stringForKey(formatKey));
    controlTextDidChange(*shnlenTrackListingFormat);
}

void PreferencesController::showMaxThreads(int tasks)
{
    maxThreadsStepper->setIntValue(tasks);
    maxThreadsStepperText->setIntValue(maxThreadsStepper->intValue());
}

void PreferencesController::setDeletion(int index)
{
    UserDefaults::standard().set(deletionKey, index);
    tellOfDeletion();
}

void PreferencesController::showDeletion()
{
    trashOrDelete->selectIndex(Util::deletesToTrash() ? 1 : 0);
}

void PreferencesController::showPreview()
{
    currentFormat->setStringValue(previewLine());
}

void PreferencesController::showComplaint()
{
    settingsNote->setStringValue(UserDefaults::standard().complaint());
    settingsNote->setToolTip(settingsNote->stringValue());
}

void PreferencesController::showWindow()
{
    window_->makeKeyAndOrderFront();
}

Outlets PreferencesController::outlets() const
{
    return {{u"maxThreadsStepper"_s, maxThreadsStepper},
            {u"maxThreadsStepperText"_s, maxThreadsStepperText},
            {u"shnlenTrackListingFormat"_s, shnlenTrackListingFormat},
            {u"currentFormat"_s, currentFormat},
            {u"trashOrDelete"_s, trashOrDelete},
            {u"restoreGeneralButton"_s, restoreGeneralButton},
            {u"restoreMetadataButton"_s, restoreMetadataButton},
            {u"settingsNote"_s, settingsNote}};
}

} // namespace zolt
