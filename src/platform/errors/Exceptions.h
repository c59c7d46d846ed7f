// The platform's exceptions. A C++ library's own exceptions are "the others": they pass guards meant for these.
#pragma once

#include <QMap>
#include <QString>

#include <exception>
#include <functional>
#include <string>

namespace zolt {

/// An exception with a name and a reason, both shown in logs. Thrown on any thread; carries no pointers.
class PlatformException : public std::exception
{
public:
    /// @param name    what kind of fault it is, such as "RangeException"
    /// @param reason  what happened, in words
    /// @param userInfo further facts by key; empty for most
    PlatformException(QString name, QString reason, QMap<QString, QString> userInfo = {});

    const QString& name() const { return name_; }
    const QString& reason() const { return reason_; }
    const QMap<QString, QString>& userInfo() const { return userInfo_; }
    /// The reason as UTF-8, for handlers that know std::exception alone.
    const char* what() const noexcept override { return what_.c_str(); }

private:
    QString name_;
    QString reason_;
    QMap<QString, QString> userInfo_;
    std::string what_;
};

/// A piece, index or range that does not exist was asked for.
class RangeException : public PlatformException
{
public:
    explicit RangeException(QString reason) : PlatformException(QStringLiteral("RangeException"), std::move(reason)) {}
};

/// An operation got an argument it cannot take, or does not exist on the object.
class InvalidArgumentException : public PlatformException
{
public:
    explicit InvalidArgumentException(QString reason)
        : PlatformException(QStringLiteral("InvalidArgumentException"), std::move(reason))
    {
    }
};

/// A condition that the code relies on does not hold.
class AssertionException : public PlatformException
{
public:
    explicit AssertionException(QString reason)
        : PlatformException(QStringLiteral("AssertionException"), std::move(reason))
    {
    }
};

/// Runs `work` and logs what it throws, platform exceptions and others alike; every entry from Qt goes through this.
/// @param where  names the entry in the log
/// @return false if something was thrown
bool guarded(const char* where, const std::function<void()>& work) noexcept;

} // namespace zolt
