#include "ui/QtInterfaces.h"

#include "engine/OutputWindowController.h"
#include "engine/StatusPanelController.h"
#include "engine/ZOLTTaskQueue.h"
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

constexpr int manyReports = 5; // in one run: the fifth window offers to gather them

/// Output windows go by themselves when they are closed; this knows those that are left.
QList<QPointer<QWidget>>& outputWindows()
{
    static QList<QPointer<QWidget>> list; // main thread only
    return list;
}

} // namespace

void QtInterfaces::install(const QString& name, InterfaceBuilder builder)
{
    names_ += name;
    installInterface(name, std::move(builder));
}

template <class View, class Owner> void QtInterfaces::installWindow(const QString& name)
{
    install(name, [this](void* owner) { windows_.push_back(std::make_unique<View>(*static_cast<Owner*>(owner))); });
}

QtInterfaces::QtInterfaces()
{
    installWindow<StatusQueueWindow, ZOLTTaskQueue>(u"StatusQueue"_s);
    installWindow<StringGetterDialog, ZOLTStringGetterPanel>(u"StringGetterPanel"_s);
    installWindow<StatusPanelWindow, StatusPanelController>(u"StatusPanel"_s);
    installWindow<TrackNamesWindow, TrackNameInputController>(u"TrackNameInputWindow"_s);
    installWindow<CustomTagsDialog, ZOLTCustomTagsPanel>(u"CustomTagsPanel"_s);
    installWindow<PreferencesWindow, PreferencesController>(u"Preferences"_s);
    // Its owner is another one each time, and gone with the run.
    install(u"TrimCharsPanel"_s, [last = std::make_shared<std::unique_ptr<QWidget>>()](void* owner) {
        *last = std::make_unique<TrimCharsDialog>(*static_cast<ZOLTTrimCharsPanel*>(owner));
    });
    install(u"OutputWindow"_s, [this](void* owner) { buildReport(owner); });
}

void QtInterfaces::buildReport(void* owner)
{
    if (std::exchange(anew_, false)) reports_.clear();
    reports_.append(nullptr);
    if (gathered_ && viewChoices::gathersReports()) return gathered_(reports_.size() == 1);
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
    gathered_(true);
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
    for (const QString& name : names_)
        installInterface(name, nullptr);
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
