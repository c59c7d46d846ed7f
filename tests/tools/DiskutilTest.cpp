#include "platform/files/Files.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

/// The companion with nothing of this machine but the shell: the programs for drives are fakes, or missing.
class Diskutil : public testing::Test
{
protected:
    Diskutil()
    {
        for (const QString& tool : {u"grep"_s, u"sh"_s})
            QFile::link(u"/bin/"_s + tool, folder_.filePath(tool));
        setMounted({});
    }
    void fake(const QString& tool, int status = 0)
    {
        ASSERT_TRUE(writeTextAtomically(
            folder_.filePath(tool),
            u"#!/bin/sh\necho \"%1 $*\" >>%2\nexit %3\n"_s.arg(tool, folder_.filePath(u"calls"_s)).arg(status)));
        QFile::setPermissions(folder_.filePath(tool), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void setMounted(const QStringList& devices)
    {
        QString table = u"/dev/sda1 / ext4 rw 0 0\n"_s;
        for (const QString& device : devices)
            table += device + u" /media/My\\040x iso9660 ro 0 0\n"_s;
        ASSERT_TRUE(writeTextAtomically(folder_.filePath(u"mounts"_s), table));
    }
    int run(const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment environment;
        environment.insert(u"PATH"_s, folder_.path());
        environment.insert(u"DISKUTIL_MOUNTS"_s, folder_.filePath(u"mounts"_s));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(DISKUTIL), arguments);
        process.waitForFinished();
        said = QString::fromUtf8(process.readAll());
        return process.exitCode();
    }
    QString calls() const
    {
        QFile file(folder_.filePath(u"calls"_s));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir folder_;
    QString said;
};

} // namespace

TEST_F(Diskutil, ADriveThatIsNotMountedIsNoFailure)
{
    fake(u"umount"_s);
    EXPECT_EQ(run({u"unmountDisk"_s, u"force"_s, u"sr0"_s}), 0);
    EXPECT_EQ(said, u"/dev/sr0 is not mounted\n"_s);
    EXPECT_EQ(calls(), QString());
}

TEST_F(Diskutil, UnmountsByTheDesktopsServiceWhereThereIsOne)
{
    setMounted({u"/dev/sr0"_s});
    fake(u"umount"_s);
    EXPECT_EQ(run({u"unmountDisk"_s, u"force"_s, u"sr0"_s}), 0);
    EXPECT_EQ(calls(), u"umount /dev/sr0\n"_s);
    EXPECT_EQ(said, u"Unmounted /dev/sr0\n"_s);
    fake(u"gio"_s);
    run({u"unmountDisk"_s, u"force"_s, u"sr0"_s});
    EXPECT_TRUE(calls().endsWith(u"gio mount -u -f /media/My x\n"));
    fake(u"udisksctl"_s);
    run({u"unmountDisk"_s, u"force"_s, u"sr0"_s});
    EXPECT_TRUE(calls().endsWith(u"udisksctl unmount --force --no-user-interaction -b /dev/sr0\n"));
}

TEST_F(Diskutil, AFailedUnmountIsToldByItsStatus)
{
    setMounted({u"/dev/sr0"_s});
    fake(u"umount"_s, 32);
    EXPECT_EQ(run({u"unmountDisk"_s, u"force"_s, u"sr0"_s}), 32);
    EXPECT_EQ(said, QString());
}

TEST_F(Diskutil, MountsOnlyWhatIsNotMounted)
{
    fake(u"mount"_s);
    EXPECT_EQ(run({u"mountDisk"_s, u"sr1"_s}), 0);
    EXPECT_EQ(calls(), u"mount /dev/sr1\n"_s);
    EXPECT_EQ(said, u"Mounted /dev/sr1\n"_s);
    setMounted({u"/dev/sr1"_s});
    EXPECT_EQ(run({u"mountDisk"_s, u"sr1"_s}), 0);
    EXPECT_EQ(said, u"/dev/sr1 is mounted\n"_s);
    EXPECT_EQ(calls(), u"mount /dev/sr1\n"_s);
}

TEST_F(Diskutil, AnAudioDiscThatCannotBeMountedIsNoFailure)
{
    fake(u"mount"_s, 32);
    EXPECT_EQ(run({u"mountDisk"_s, u"sr1"_s}), 0);
    EXPECT_EQ(said, u"/dev/sr1 was not mounted: there may be no files on its disc\n"_s);
}

TEST_F(Diskutil, OtherCallsAreWrong)
{
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(run({u"unmountDisk"_s, u"sr0"_s}), 2);
    EXPECT_EQ(run({u"eject"_s, u"sr0"_s}), 2);
}
