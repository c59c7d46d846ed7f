#include "platform/errors/Exceptions.h"

#include "platform/Log.h"

namespace zolt {

PlatformException::PlatformException(QString name, QString reason, QMap<QString, QString> userInfo)
    : name_(std::move(name)), reason_(std::move(reason)), userInfo_(std::move(userInfo)),
      what_(reason_.toUtf8().toStdString())
{
}

bool guarded(const char* where, const std::function<void()>& work) noexcept
{
    try {
        work();
        return true;
    } catch (const PlatformException& fault) {
        qCCritical(platformLog, "%s: %s: %s", where, qUtf8Printable(fault.name()), fault.what());
    } catch (const std::exception& fault) {
        qCCritical(platformLog, "%s: %s", where, fault.what());
    } catch (...) {
        qCCritical(platformLog, "%s: an exception of unknown kind", where);
    }
    return false;
}

} // namespace zolt
