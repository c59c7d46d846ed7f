// Keeps the messages of the log while it lives, instead of printing them.
#pragma once

#include "platform/base.h"

namespace zolt {

/// One at a time; messages of any thread.
class LogCapture
{
public:
    LogCapture() { previous_ = qInstallMessageHandler(keep); }
    ~LogCapture()
    {
        qInstallMessageHandler(previous_);
        lines_.clear();
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    QStringList lines() const
    {
        const std::lock_guard hold(mutex_);
        return lines_;
    }

private:
    static void keep(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        const std::lock_guard hold(mutex_);
        lines_ << message;
    }

    QtMessageHandler previous_;
    static inline std::mutex mutex_;
    static inline QStringList lines_;
};

} // namespace zolt
