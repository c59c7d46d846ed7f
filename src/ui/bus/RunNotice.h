// The desktop's notification that a run has ended.
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace zolt {

/// One at a time: a new one takes the old one's place. Without a notification service nothing happens. Main thread.
class RunNotice : public QObject
{
    Q_OBJECT

public:
    explicit RunNotice(const QDBusConnection& session = QDBusConnection::sessionBus());

    /// Called when a person wants to see the report.
    void setShowReport(std::function<void()> showReport) { showReport_ = std::move(showReport); }
    /// @param text  plain, never markup
    void show(const QString& title, const QString& text);

private Q_SLOTS:
    void takeAction(uint id, const QString& action);

private:
    QDBusConnection session_;
    uint id_ = 0; ///< of the one that stands; 0 for none
    std::function<void()> showReport_;
};

} // namespace zolt
