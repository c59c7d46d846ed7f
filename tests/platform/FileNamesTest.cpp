#include "platform/files/FileNames.h"

#include "platform/files/FileWalk.h"
#include "platform/files/Files.h"
#include "platform/files/NamedFile.h"
#include "support/test.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

const QByteArray latin = "caf\xe9 \xfc"
                         "ber.flac";

class OddlyNamed : public testing::Test
{
protected:
    /// Makes an empty file of that name. @return its path as text
    QString make(const QByteArray& name) const
    {
        const QByteArray path = folder_.path().toUtf8() + '/' + name;
        const int descriptor = ::open(path.constData(), O_WRONLY | O_CREAT, 0644);
        EXPECT_GE(descriptor, 0);
        ::close(descriptor);
        return nameOfBytes(path);
    }
    bool isThere(const QByteArray& name) const
    {
        return ::access((folder_.path().toUtf8() + '/' + name).constData(), F_OK) == 0;
    }

    QTemporaryDir folder_;
};

} // namespace

TEST(FileNames, WhatIsUtf8ReadsAsItself)
{
    const QString name = u"für 音 \U0001F3B5.flac"_s;
    EXPECT_EQ(nameOfBytes(name.toUtf8()), name);
    EXPECT_EQ(bytesOfName(name), name.toUtf8());
    EXPECT_EQ(readableName(name), name);
}

TEST(FileNames, EveryByteComesBackWhateverStandsAroundIt)
{
    for (const QByteArray& around : {QByteArray("a"), QByteArray("\xc3\xa9"), QByteArray("\xf0\x9f\x8e\xb5"),
                                     QByteArray("\xc3"), QByteArray("\xef\xbb\xbf"), QByteArray()}) {
        for (int byte = 1; byte < 256; ++byte) {
            const QByteArray name = around + char(byte) + around;
            EXPECT_EQ(bytesOfName(nameOfBytes(name)), name) << name.toHex().toStdString();
        }
    }
}

TEST(FileNames, FormsThatOnlyLookLikeUtf8ComeBack)
{
    for (const QByteArray& name : {QByteArray("\xed\xb3\xa9"), QByteArray("\xc0\xaf"), QByteArray("\xf4\x90\x80\x80"),
                                   QByteArray("\xe2\x82"), QByteArray("\xf0\x9f\x8e\xb5\x80")})
        EXPECT_EQ(bytesOfName(nameOfBytes(name)), name) << name.toHex().toStdString();
}

TEST(FileNames, TwoNamesNeverBecomeOne)
{
    EXPECT_NE(nameOfBytes("caf\xe9"), nameOfBytes("caf\xc3\xa9"));
    EXPECT_NE(nameOfBytes("caf\xe9"), nameOfBytes("caf\xe8"));
}

TEST(FileNames, APairThatHoldsTheEscapesCodeIsNoEscape)
{
    const QString name = QString::fromUcs4(U"\U000104E9"); // its second half is 0xDCE9
    ASSERT_EQ(name[1].unicode(), 0xDCE9);
    EXPECT_EQ(bytesOfName(name + nameOfBytes("\xe9")), name.toUtf8() + '\xe9');
    EXPECT_EQ(readableName(name), name);
}

TEST(FileNames, APersonReadsTheLettersThatWereMeant)
{
    EXPECT_EQ(readableName(nameOfBytes(latin)), u"café über.flac"_s);
}

TEST_F(OddlyNamed, FilesAreFoundOpenedAndRemoved)
{
    const QString path = make(latin);
    QStringList walked;
    walkFiles(folder_.path(), [&](const QString& file) { walked += file; });
    EXPECT_EQ(walked, QStringList{path});
    EXPECT_EQ(directoryListing(folder_.path()), QStringList{nameOfBytes(latin)});
    EXPECT_TRUE(exists(path) && isRegularFile(path));
    EXPECT_EQ(realPath(path), path);
    NamedFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    EXPECT_EQ(file.write("abc"), 3);
    file.close();
    EXPECT_EQ(fileSize(path), 3);
    EXPECT_TRUE(removeItem(path));
    EXPECT_FALSE(isThere(latin));
    EXPECT_EQ(fileSize(path), -1);
}

TEST_F(OddlyNamed, TextsAreWrittenAndNamesInThemKeepTheirBytes)
{
    const QString path = nameOfBytes(folder_.path().toUtf8() + '/' + latin);
    EXPECT_TRUE(writeTextAtomically(path, nameOfBytes("*" + latin)));
    NamedFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "*" + latin);
}

TEST_F(OddlyNamed, TheTrashTakesThemUnderTheNameThatAPersonReads)
{
    const QByteArray saved = qgetenv("XDG_DATA_HOME");
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    const QString path = make(latin);
    EXPECT_TRUE(moveToTrash(path));
    EXPECT_TRUE(exists(data.filePath(u"Trash/files/café über.flac"_s)));
    make("caf\xc3\xa9 \xc3\xbc"
         "ber.flac");
    make(latin);
    EXPECT_FALSE(moveToTrash(path)); // it would meet its neighbour's name
    EXPECT_TRUE(isThere(latin));
    qputenv("XDG_DATA_HOME", saved);
}

TEST_F(OddlyNamed, ATextThatIsWrittenAnewKeepsTheFilesRights)
{
    const QString path = make("a.txt");
    ASSERT_EQ(::chmod(bytesOfName(path).constData(), 0640), 0);
    EXPECT_TRUE(writeTextAtomically(path, u"new"_s));
    struct stat facts = {};
    ASSERT_EQ(::stat(bytesOfName(path).constData(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0640U);
}

TEST_F(OddlyNamed, ALinkKeepsLeadingToTheTextThatIsWrittenThroughIt)
{
    const QString path = make("a.txt");
    const QString link = folder_.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_TRUE(writeTextAtomically(link, u"new"_s));
    EXPECT_EQ(realPath(link), realPath(path));
    EXPECT_EQ(fileSize(path), 3);
}

TEST(NamedFiles, TellWhyTheyCannotBeOpened)
{
    const QTemporaryDir folder;
    NamedFile none(folder.filePath(u"none"_s));
    EXPECT_FALSE(none.open(QIODevice::ReadOnly));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(none.errorString(), u"No such file or directory"_s);
    NamedFile directory(folder.path());
    EXPECT_FALSE(directory.open(QIODevice::ReadOnly));
    EXPECT_EQ(errno, EISDIR);
}

TEST(NamedFiles, OpenAsTheModeSays)
{
    const QTemporaryDir folder;
    NamedFile file(folder.filePath(u"a"_s));
    const auto holds = [&](QIODevice::OpenMode mode, const QByteArray& written) {
        if (!file.open(mode)) return QByteArray("closed");
        file.write(written);
        file.close();
        QFile plain(file.fileName());
        return plain.open(QIODevice::ReadOnly) ? plain.readAll() : QByteArray("unreadable");
    };
    EXPECT_EQ(holds(QIODevice::WriteOnly, "long text"), "long text");
    EXPECT_EQ(holds(QIODevice::WriteOnly | QIODevice::NewOnly, "x"), "closed");
    EXPECT_EQ(holds(QIODevice::ReadWrite, "L"), "Long text");
    EXPECT_EQ(holds(QIODevice::Append, "!"), "Long text!");
    EXPECT_EQ(holds(QIODevice::WriteOnly, "a"), "a");
    EXPECT_EQ(holds(QIODevice::ReadWrite | QIODevice::Truncate, ""), "");
}
