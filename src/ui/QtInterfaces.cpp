#include "ui/QtInterfaces.h"

#include "engine/OutputWindowController.h"
#include "engine/StatusPanelController.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Interfaces.h"
#include "shell/PreferencesController.h"
#include "shell/ZOLTStringGetterPanel.h"
#include "ui/ViewChoices.h"
#include "ui/WindowPlaces.h"
#include "ui/panels/PreferencesWindow.h"
#include "ui/panels/StatusPanelWindow.h"
#include "ui/panels/StringGetterDialog.h"
#include "ui/panels/TrackNamesWindow.h"
#include "ui/queue/StatusQueueWindow.h"
#include "ui/reports/OutputWindow.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const char16_t* const names[] = {u"StatusQueue",          u"StringGetterPanel", u"StatusPanel",    u"OutputWindow",
                                 u"TrackNameInputWindow", u"CustomTagsPanel",   u"TrimCharsPanel", u"Preferences"};

constexpr int manyReports = 5; // in one run: the fifth window offers to gather them

/// Output windows go by themselves when they are closed; this knows those that are left.
QList<QPointer<QWidget>>& outputWindows()
{
    static QList<QPointer<QWidget>> list; // main thread only
    return list;
}

} // namespace

template <class View, class Owner> void QtInterfaces::install(const char16_t* name)
{
    installInterface(QString::fromUtf16(name),
                     [this](void* owner) { windows_.push_back(std::make_unique<View>(*static_cast<Owner*>(owner))); });
}

QtInterfaces::QtInterfaces()
{
    install<StatusQueueWindow, ZOLTTaskQueue>(names[0]);
    install<StringGetterDialog, ZOLTStringGetterPanel>(names[1]);
    install<StatusPanelWindow, StatusPanelController>(names[2]);
    install<TrackNamesWindow, TrackNameInputController>(names[4]);
    install<CustomTagsDialog, ZOLTCustomTagsPanel>(names[5]);
    install<PreferencesWindow, PreferencesController>(names[7]);
    // Its owner is another one each time, and gone with the run.
    installInterface(QString::fromUtf16(names[6]), [last = std::make_shared<std::unique_ptr<QWidget>>()](void* owner) {
        *last = std::make_unique<TrimCharsDialog>(*static_cast<ZOLTTrimCharsPanel*>(owner));
    });
    installInterface(QString::fromUtf16(names[3]), [this](void* owner) { buildReport(owner); });
}

void QtInterfaces::buildReport(void* owner)
{
    reports_.append(nullptr);
    if (gathered_ && viewChoices::gathersReports()) return gathered_();
    outputWindows().removeIf([](const auto& window) { return !window; });
    auto* const window = new OutputWindow(*static_cast<OutputWindowController*>(owner));
    outputWindows().append(window);
    reports_.last() = window;
    if (gathered_ && reports_.size() == manyReports) window->offerGathering([this] { gather(); });
}

void QtInterfaces::gather()
{
    viewChoices::setGathersReports(true);
    closeReports();
    gathered_();
}

bool QtInterfaces::presentReports()
{
    bool any = false;
    for (const auto& window : reports_) {
        if (!window || window->isHidden()) continue;
        bringToFront(*window);
        any = true;
    }
    return any;
}

void QtInterfaces::closeReports()
{
    for (const auto& window : outputWindows()) {
        if (window) window->close();
    }
}

QtInterfaces::~QtInterfaces()
{
    closeAll();
    for (const char16_t* name : names)
        installInterface(QString::fromUtf16(name), nullptr);
}

void QtInterfaces::closeAll()
{
    for (const auto& window : std::exchange(outputWindows(), {}))
        delete window.data();
    windows_.clear();
}

std::vector<QWidget*> QtInterfaces::windows() const
{
    std::vector<QWidget*> all;
    for (const auto& window : windows_)
        all.push_back(window.get());
    for (const auto& window : outputWindows()) {
        if (window) all.push_back(window);
    }
    return all;
}

} // namespace zolt
