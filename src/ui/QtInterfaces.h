// Builds the window of each named interface description.
#pragma once

#include "platform/desktop/Interfaces.h"

#include <QList>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace zolt {

/// Installs its builders when it is made and takes them away when it goes; owns the windows that stay for the life of
/// their owners. Made before the program's objects. Main thread.
class QtInterfaces
{
public:
    QtInterfaces();
    ~QtInterfaces();
    QtInterfaces(const QtInterfaces&) = delete;
    QtInterfaces& operator=(const QtInterfaces&) = delete;

    /// Closes every window it has built; output windows too. Called before the owners go.
    void closeAll();
    /// Closes the output windows; the reports stay with the queue.
    void closeReports();
    /// Called in place of opening a report's own window while reports are gathered. Empty for nobody.
    /// @param first  of its run
    void setGathered(std::function<void(bool first)> gathered) { gathered_ = std::move(gathered); }
    /// A run has ended: the next report is the first of another, whose fifth offers to gather them. Told at the end: a
    /// report may come before its run is known to have begun.
    void countReportsAnew() { anew_ = true; }
    /// Brings the report windows of the run to the front that are still open. @return false if there is none
    bool presentReports();
    /// The window of that class that stays for the life of its owner; none while it was not built.
    template <class View> View* window() const
    {
        for (const auto& each : windows_) {
            if (auto* const found = dynamic_cast<View*>(each.get())) return found;
        }
        return nullptr;
    }
    /// The windows built so far that are still there.
    std::vector<QWidget*> windows() const;

private:
    void install(const QString& name, InterfaceBuilder builder);
    template <class View, class Owner> void installWindow(const QString& name);
    void buildReport(void* owner);
    void gather();

    QStringList names_;
    std::vector<std::unique_ptr<QWidget>> windows_;
    std::function<void(bool first)> gathered_;
    bool anew_ = false;
    QList<QPointer<QWidget>> reports_; // the windows of the run's reports; none for a gathered or a closed one
};

} // namespace zolt
