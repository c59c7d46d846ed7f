#include "support/LogCapture.h"

#include <mutex>

namespace zolt::test {

namespace {

std::mutex mutex;
QStringList captured;

void capture(QtMsgType, const QMessageLogContext&, const QString& message)
{
    const std::lock_guard guard(mutex);
    captured.append(message);
}

} // namespace

LogCapture::LogCapture()
{
    captured.clear();
    qInstallMessageHandler(capture);
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(nullptr);
}

QStringList LogCapture::lines() const
{
    const std::lock_guard guard(mutex);
    return captured;
}

qsizetype LogCapture::count(const QString& text) const
{
    return lines().filter(text).size();
}

} // namespace zolt::test
