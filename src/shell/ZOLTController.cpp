#include "shell/ZOLTController.h"

#include "encode/CoreAudioHelper.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/Product.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/Panels.h"
#include "platform/files/FileWalk.h"
#include "platform/text/Text.h"
#include "shell/BaseTab.h"
#include "shell/Constants.h"
#include "shell/DefaultSettings.h"
#include "shell/PreferencesController.h"
#include "shell/SystemFiles.h"
#include "shntool/TrackNameInputController.h"

namespace zolt {

namespace {

using C = Constants;

/// Extensions by tab label; a label without an entry takes any file, as util does. M4A is missing from "encode" and
/// "lossy" because an M4A file has to be looked into: only Apple Lossless may enter.
QHash<QString, QSet<QString>> acceptedByLabel()
{
    return {
        {C::DECODE, {C::FLAC, C::SHN, C::WV, C::M4A, C::TTA, C::APE}},
        {C::ENCODE, {C::WAV, C::AIF, C::AIFF, C::FLAC, C::SHN, C::WV, C::TTA, C::APE}},
        {C::CHECKSUM,
         {C::WAV, C::AIFF, C::AIF, C::FLAC, C::SHN, C::MD5, C::FFP, C::TXT, C::APE, C::WV, C::TTA, C::ST5}},
        {C::SHNTOOL, {C::FLAC, C::SHN, C::WAV, C::AIF, C::AIFF, C::TTA, C::WV, C::APE}},
        {C::FIX_SBE, {C::FLAC, C::SHN, C::WAV, C::AIF, C::AIFF, C::WV, C::TTA}},
        {C::LOSSY, {C::FLAC, C::SHN, C::WAV, C::AIFF, C::AIF, C::WV, C::TTA}},
        {C::TAGS, {C::FLAC, C::M4A, C::MP3, C::WV, C::APE}},
    };
}

struct TabOutlet
{
    QString label;
    BaseTab* ZOLTController::*field;
};

const std::vector<TabOutlet>& tabOutlets()
{
    using Z = ZOLTController;
    static const std::vector<TabOutlet> table{
        {C::DECODE, &Z::decodeTab},   {C::ENCODE, &Z::encodeTab}, {C::CHECKSUM, &Z::checksumTab},
        {C::SHNTOOL, &Z::shntoolTab}, {C::FIX_SBE, &Z::fixTab},   {C::UTIL, &Z::utilTab},
        {C::TAGS, &Z::tagsTab},       {C::LOSSY, &Z::lossyTab},
    };
    return table;
}

/// These tabs take M4A files by what is in them.
bool takesAppleLossless(const QString& label)
{
    return label == C::LOSSY || label == C::ENCODE;
}

QString upperExtension(const QString& path)
{
    return path::extension(path).toUpper();
}

/// With the about tab in front these count as input of the decoder, also where the encoder takes them.
bool isDecoderInput(const QString& extension)
{
    static const QSet<QString> compressed{C::FLAC, C::SHN, C::WV, C::TTA, C::M4A, C::APE};
    return compressed.contains(extension);
}

bool confirmed(const QString& title, const QString& message)
{
    constexpr int alternate = 0; // "No" is the default button
    return panels().runAlert(title, message, QStringLiteral("No"), QStringLiteral("Yes")) == alternate;
}

} // namespace

void ZOLTController::initialize()
{
    registerDefaultSettings();
}

ZOLTController::ZOLTController()
    : preferencesController_(std::make_unique<PreferencesController>()),
      trackNameInputController_(std::make_shared<TrackNameInputController>()),
      taskQueue_(ZOLTTaskQueue::initWithController(this)), extensionMap_(acceptedByLabel())
{
    tabView->setDelegate([this](const TabView::Item& item) { tabViewDidSelectTabViewItem(*item); });
}

ZOLTController::~ZOLTController() = default;

void ZOLTController::addTab(BaseTab& tab, const QString& label)
{
    tab.tabViewItem = std::make_shared<TabViewItem>(label);
    tab.zoltController = this;
    for (const auto& [known, field] : tabOutlets()) {
        if (known == label) this->*field = &tab;
    }
    tabView->addTabViewItem(tab.tabViewItem);
    tab.awakeFromNib();
}

void ZOLTController::awakeFromNib()
{
    buildTextField->setStringValue(QStringLiteral("(Build %1)").arg(QLatin1String(product::build)));
    ZoltTitleTextField->setStringValue(
        QStringLiteral("%1 %2").arg(QLatin1String(product::name), QLatin1String(product::version)));
    preferencesController_->initToolbar();
}

void ZOLTController::applicationDidFinishLaunching()
{
    for (const auto& [label, field] : tabOutlets())
        tabMap_.insert(label, this->*field);
    for (BaseTab* const tab : {shntoolTab, tagsTab})
        if (tab) tab->setTrackNameWindow(trackNameInputController_);
    if (const auto item = selectedTabViewItem()) tabViewDidSelectTabViewItem(*item);
}

void ZOLTController::applicationOpenFiles(const QStringList& paths)
{
    addFiles(paths);
}

const QSet<QString>* ZOLTController::acceptedExtensions(const QString& label) const
{
    const auto entry = extensionMap_.constFind(label);
    return entry == extensionMap_.constEnd() ? nullptr : &*entry;
}

QStringList ZOLTController::offeredExtensions(const QString& label) const
{
    QStringList offered = extensionMap_.value(label).values();
    if (takesAppleLossless(label)) offered += C::M4A;
    offered.sort();
    return offered;
}

bool ZOLTController::isValidFilePath(const QString& label, const QString& path) const
{
    const auto* accepted = acceptedExtensions(label);
    if (!accepted || label == C::CHECKSUM) return true;
    const QString extension = upperExtension(path);
    if (extension.isEmpty()) return label != C::TAGS;
    if (takesAppleLossless(label) && extension == C::M4A) return CoreAudioHelper::isAppleLossless(path);
    if (accepted->contains(extension)) return true;
    const bool takesAudio = accepted->contains(C::WAV) || accepted->contains(C::AIF) || accepted->contains(C::AIFF);
    return takesAudio && CoreAudioHelper::isAiffOrWav(path);
}

void ZOLTController::tabViewDidSelectTabViewItem(const TabViewItem& item)
{
    if (BaseTab* const tab = tabOfLabel(item.label())) tab->displayRelevantOptions();
}

void ZOLTController::windowWillClose()
{
    desktop().terminate();
}

void ZOLTController::applicationWillTerminate()
{
    intake_.stop();
    for (BaseTab* const tab : std::as_const(tabMap_))
        if (tab) tab->stopTakingIn();
    taskQueue_->killAllTasks();
}

void ZOLTController::selectTab(Sender sender)
{
    tabView->selectTabViewItemAtIndex(sender ? sender->tag() : 0);
}

std::shared_ptr<TabViewItem> ZOLTController::selectedTabViewItem() const
{
    return tabView->selectedTabViewItem();
}

void ZOLTController::showPreferencePanel(Sender)
{
    preferencesController_->showWindow();
}

QStringList ZOLTController::getFilesFileManager(const QString& path) const
{
    QStringList files;
    walkFiles(path, [&files](const QString& file) {
        if (!isSystemFile(file)) files.append(file);
    });
    return files;
}

QString ZOLTController::folderInFront() const
{
    const auto item = selectedTabViewItem();
    const BaseTab* const tab = item ? tabOfLabel(item->label()) : nullptr;
    if (!tab || tab->fileNames().isEmpty()) return {};
    return path::deletingLastComponent(tab->fileNames().at(0));
}

void ZOLTController::addFiles(const QStringList& paths)
{
    const auto item = selectedTabViewItem();
    const QString label = item ? item->label() : QString();
    if (label == C::ABOUT) return routeEach(paths);
    const auto accepts = [this, label](const QString& file) {
        return !isSystemFile(file) && passesFilter(label, file);
    };
    if (BaseTab* const tab = tabOfLabel(label)) tab->addFilesAccepted(paths, accepts);
}

void ZOLTController::routeEach(const QStringList& paths)
{
    const auto accepts = [](const QString& file) { return !isSystemFile(file); };
    const auto route = [this](const Intake& all) {
        for (const QString& file : all.files)
            routeByExtension(file);
    };
    if (walksInBackground_)
        return intake_.start(
            paths, accepts, [](const QStringList&) {}, route);
    const std::atomic<bool> stop = false;
    route(takeIn(
        paths, accepts, [](const QString&) {}, stop));
}

bool ZOLTController::passesFilter(const QString& label, const QString& path) const
{
    if (label == C::CHECKSUM) return true;
    const QString extension = upperExtension(path);
    // Kept: this way in lets Apple Lossless into the encode tab alone, the tab's own way into the lossy tab too.
    if (label == C::ENCODE && extension == C::M4A && CoreAudioHelper::isAppleLossless(path)) return true;
    const auto* accepted = acceptedExtensions(label);
    return !accepted || accepted->contains(extension);
}

void ZOLTController::routeByExtension(const QString& path)
{
    const QString extension = upperExtension(path);
    if (isDecoderInput(extension)) return handTo(decodeTab, DecodeIndex, path);
    if (extensionMap_.value(C::ENCODE).contains(extension)) return handTo(encodeTab, EncodeIndex, path);
    if (extensionMap_.value(C::DECODE).contains(extension)) return handTo(decodeTab, DecodeIndex, path);
    if (extensionMap_.value(C::CHECKSUM).contains(extension)) return handTo(checksumTab, ChecksumIndex, path);
    tabView->selectTabViewItemAtIndex(EncodeIndex); // kept: also for a file that no tab takes
}

void ZOLTController::handTo(BaseTab* tab, int index, const QString& path)
{
    if (tab) tab->addFile(path);
    tabView->selectTabViewItemAtIndex(index);
}

bool ZOLTController::windowShouldClose() const
{
    return confirmed(QStringLiteral("Are you sure you want to quit?"), QString());
}

ZOLTController::TerminateReply ZOLTController::applicationShouldTerminate() const
{
    const int count = taskQueue_->taskCount();
    if (count < 1) return TerminateReply::Now;
    const QString message =
        QStringLiteral("There are %1 tasks in the queue.  Are you sure you want to quit?").arg(count);
    return confirmed(QStringLiteral("Tasks in Progress"), message) ? TerminateReply::Now : TerminateReply::Cancel;
}

} // namespace zolt
