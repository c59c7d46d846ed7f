#include "platform/desktop/UserDefaults.h"

#include "platform/Log.h"
#include "platform/desktop/SettingsFile.h"
#include "platform/text/Text.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString standardPath()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(u"zolt/settings.ini"_s);
}

/// A saved truth value reads as 1 or 0 wherever a number is wanted: a box may stand for a number's key.
QString numberText(const QString& text)
{
    return text == u"true" ? QStringLiteral("1") : text;
}

} // namespace

UserDefaults& UserDefaults::standard()
{
    static UserDefaults defaults(standardPath());
    return defaults;
}

UserDefaults::UserDefaults(const QString& path)
{
    load(path);
}

void UserDefaults::load(const QString& path)
{
    path_ = path;
    Values values;
    const QSettings file(path, QSettings::IniFormat);
    for (const QString& key : file.allKeys()) {
        if (!key.isEmpty()) values[key] = file.value(key); // a damaged file may name an empty one
    }
    const QString complaint = settingsFile::complaintAbout(file);
    if (!complaint.isEmpty()) qCWarning(platformLog).noquote() << complaint;
    const std::lock_guard guard(mutex_);
    saved_ = std::move(values);
    fileComplaint_ = complaint;
    saveComplaint_.clear();
}

QString UserDefaults::complaint() const
{
    const std::lock_guard guard(mutex_);
    return saveComplaint_.isEmpty() ? fileComplaint_ : saveComplaint_;
}

void UserDefaults::registerDefaults(const Values& values)
{
    const std::lock_guard guard(mutex_);
    for (const auto& [key, value] : values)
        registered_[key] = value;
}

std::optional<QVariant> UserDefaults::objectForKey(const QString& key) const
{
    const std::lock_guard guard(mutex_);
    for (const Values* layer : {&saved_, &registered_}) {
        if (const auto found = layer->find(key); found != layer->end()) return found->second;
    }
    return std::nullopt;
}

QString UserDefaults::stringForKey(const QString& key) const
{
    return objectForKey(key).value_or(QVariant()).toString();
}

int UserDefaults::integerForKey(const QString& key) const
{
    return intValue(numberText(stringForKey(key)));
}

double UserDefaults::doubleForKey(const QString& key) const
{
    return doubleValue(numberText(stringForKey(key)));
}

bool UserDefaults::boolForKey(const QString& key) const
{
    return doubleForKey(key) != 0.0;
}

void UserDefaults::set(const QString& key, const QVariant& value)
{
    change(key, value);
}

void UserDefaults::remove(const QString& key)
{
    change(key, std::nullopt);
}

void UserDefaults::change(const QString& key, const std::optional<QVariant>& value)
{
    const std::lock_guard fileGuard(fileMutex_);
    {
        const std::lock_guard guard(mutex_);
        if (value) {
            saved_[key] = *value;
        } else {
            saved_.erase(key);
        }
    }
    if (!inMemory_) save(key, value);
}

void UserDefaults::save(const QString& key, const std::optional<QVariant>& value)
{
    const QString complaint = settingsFile::save(path_, key, value);
    if (!complaint.isEmpty()) qCWarning(platformLog).noquote() << complaint;
    const std::lock_guard guard(mutex_);
    saveComplaint_ = complaint;
}

void UserDefaults::keepInMemory()
{
    const std::lock_guard guard(fileMutex_);
    inMemory_ = true;
}

void UserDefaults::reopen(const QString& path)
{
    const std::lock_guard fileGuard(fileMutex_);
    inMemory_ = false;
    load(path);
}

} // namespace zolt
