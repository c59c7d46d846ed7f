// What an alert is about, where the alert itself does not say.
#pragma once

#include <QString>

namespace zolt {

/// While it lives, a question that has no message of its own says this beneath its title; what is only told does not.
/// They may lie inside one another. Main thread.
class AlertContext
{
public:
    explicit AlertContext(const QString& sentence);
    ~AlertContext();
    AlertContext(const AlertContext&) = delete;
    AlertContext& operator=(const AlertContext&) = delete;

    /// The innermost sentence; empty where there is none.
    static QString current();

private:
    const QString before_;
};

} // namespace zolt
