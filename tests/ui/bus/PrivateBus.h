// A message bus of a test's own.
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QSet>

#include <gtest/gtest.h>

namespace zolt::test {

class PrivateBus
{
public:
    PrivateBus()
    {
        using namespace Qt::StringLiterals;
        daemon_.start(u"dbus-daemon"_s, {u"--session"_s, u"--print-address"_s, u"--nofork"_s});
        EXPECT_TRUE(daemon_.waitForReadyRead()) << daemon_.errorString().toStdString();
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    }
    ~PrivateBus()
    {
        for (const QString& name : names_)
            QDBusConnection::disconnectFromBus(name);
        daemon_.kill();
        daemon_.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// A connection of that name, as a program has one; the same one when asked again. Any thread, one at a time.
    QDBusConnection connection(const QString& name)
    {
        names_ += name;
        return QDBusConnection::connectToBus(address_, name);
    }

    /// Where other programs find it.
    const QString& address() const { return address_; }

private:
    QProcess daemon_;
    QString address_;
    QSet<QString> names_;
};

} // namespace zolt::test
