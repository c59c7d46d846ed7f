#include "platform/files/Files.h"

#include "support/FileSizeLimit.h"
#include "support/test.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Files : public testing::Test
{
protected:
    QString at(const QString& name) const { return directory_.filePath(name); }

    void place(const QString& name, const QByteArray& bytes = {}) const
    {
        QFile file(at(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }

    QByteArray bytesOf(const QString& name) const
    {
        QFile file(at(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    QTemporaryDir directory_;
};

/// Files whose trash is a directory of the test's own.
class Trash : public Files
{
protected:
    void SetUp() override
    {
        saved_ = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", QFile::encodeName(at(u"data"_s)));
    }
    void TearDown() override { qputenv("XDG_DATA_HOME", saved_); }

    QByteArray saved_;
};

} // namespace

TEST_F(Files, TextIsWrittenAsUtf8)
{
    EXPECT_TRUE(writeTextAtomically(at(u"a.txt"_s), u"für 音\n"_s));
    EXPECT_EQ(bytesOf(u"a.txt"_s), QByteArray("f\xc3\xbcr \xe9\x9f\xb3\n"));
}

TEST_F(Files, AWrittenTextTakesTheOldOnesPlaceAndLeavesNothingBeside)
{
    place(u"a.txt"_s, "a text that is longer than the new one");
    EXPECT_TRUE(writeTextAtomically(at(u"a.txt"_s), u"new"_s));
    EXPECT_EQ(bytesOf(u"a.txt"_s), QByteArray("new"));
    EXPECT_EQ(directoryListing(directory_.path()), QStringList{u"a.txt"_s});
}

TEST_F(Files, AnOpenReaderKeepsTheOldText)
{
    place(u"a.txt"_s, "old");
    QFile reader(at(u"a.txt"_s));
    ASSERT_TRUE(reader.open(QFile::ReadOnly));
    EXPECT_TRUE(writeTextAtomically(at(u"a.txt"_s), u"new"_s));
    EXPECT_EQ(reader.readAll(), QByteArray("old"));
}

TEST_F(Files, WritingIntoAMissingDirectoryFails)
{
    EXPECT_FALSE(writeTextAtomically(at(u"gone/a.txt"_s), u"text"_s));
    EXPECT_FALSE(isDirectory(at(u"gone"_s)));
}

TEST_F(Files, WritingOverADirectoryFailsAndKeepsIt)
{
    ASSERT_TRUE(QDir(directory_.path()).mkdir(u"d"_s));
    EXPECT_FALSE(writeTextAtomically(at(u"d"_s), u"text"_s));
    EXPECT_TRUE(isDirectory(at(u"d"_s)));
    EXPECT_EQ(directoryListing(directory_.path()), QStringList{u"d"_s});
}

TEST_F(Files, AWriteThatTheSystemCutsShortKeepsTheOldTextAndLeavesNothingBeside)
{
    place(u"a.txt"_s, "old");
    for (const qsizetype size : {8000, 100000}) {
        const FileSizeLimit limit(4096);
        EXPECT_FALSE(writeTextAtomically(at(u"a.txt"_s), QString(size, u'x'))) << size;
    }
    EXPECT_EQ(bytesOf(u"a.txt"_s), QByteArray("old"));
    EXPECT_EQ(directoryListing(directory_.path()), QStringList{u"a.txt"_s});
}

TEST_F(Files, ANamedPipeIsNotReplacedByAFile)
{
    const QByteArray pipe = QFile::encodeName(at(u"pipe"_s));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    EXPECT_FALSE(writeTextAtomically(at(u"pipe"_s), u"text"_s));
    EXPECT_FALSE(QFileInfo(at(u"pipe"_s)).isFile());
}

TEST_F(Files, AFileIsRemoved)
{
    place(u"a"_s);
    EXPECT_TRUE(removeItem(at(u"a"_s)));
    EXPECT_FALSE(QFile::exists(at(u"a"_s)));
}

TEST_F(Files, RemovingWhatIsNotThereRemovesNothing)
{
    EXPECT_FALSE(removeItem(at(u"a"_s)));
}

TEST_F(Files, ALinkIsRemovedAndItsTargetStays)
{
    place(u"target"_s);
    ASSERT_TRUE(QFile::link(at(u"target"_s), at(u"link"_s)));
    EXPECT_TRUE(removeItem(at(u"link"_s)));
    EXPECT_EQ(directoryListing(directory_.path()), QStringList{u"target"_s});
}

TEST_F(Files, ADirectoryWithContentsStays)
{
    ASSERT_TRUE(QDir(directory_.path()).mkdir(u"d"_s));
    place(u"d/a"_s);
    EXPECT_FALSE(removeItem(at(u"d"_s)));
    EXPECT_TRUE(QFile::exists(at(u"d/a"_s)));
}

TEST_F(Files, AListingHoldsHiddenAndOddNamesAndNoDots)
{
    const QStringList names{u".hidden"_s, u"a: b% \"c\".flac"_s, u"two\nlines"_s, u"音楽"_s};
    for (const QString& name : names)
        place(name);
    QStringList listed = directoryListing(directory_.path());
    listed.sort();
    EXPECT_EQ(listed, names);
}

TEST_F(Files, AListingOfWhatIsNoDirectoryIsEmpty)
{
    place(u"file"_s);
    EXPECT_TRUE(directoryListing(at(u"file"_s)).isEmpty());
    EXPECT_TRUE(directoryListing(at(u"gone"_s)).isEmpty());
    EXPECT_TRUE(directoryListing(QString()).isEmpty());
}

TEST_F(Files, ALinkToADirectoryIsADirectory)
{
    place(u"file"_s);
    ASSERT_TRUE(QFile::link(directory_.path(), at(u"link"_s)));
    EXPECT_TRUE(isDirectory(at(u"link"_s)));
    EXPECT_FALSE(isDirectory(at(u"file"_s)));
    EXPECT_FALSE(isDirectory(at(u"gone"_s)));
    EXPECT_FALSE(isDirectory(QString()));
}

TEST_F(Trash, AFileMovesToTheTrashWithItsContents)
{
    place(u"a.flac"_s, "audio");
    EXPECT_TRUE(moveToTrash(at(u"a.flac"_s)));
    EXPECT_FALSE(QFile::exists(at(u"a.flac"_s)));
    EXPECT_EQ(bytesOf(u"data/Trash/files/a.flac"_s), QByteArray("audio"));
    EXPECT_TRUE(bytesOf(u"data/Trash/info/a.flac.trashinfo"_s).contains(QFile::encodeName(at(u"a.flac"_s))));
}

TEST_F(Trash, TwoFilesOfOneNameBothStandInTheTrash)
{
    for (const QByteArray& bytes : {QByteArray("one"), QByteArray("two")}) {
        place(u"a.flac"_s, bytes);
        EXPECT_TRUE(moveToTrash(at(u"a.flac"_s)));
    }
    EXPECT_EQ(directoryListing(at(u"data/Trash/files"_s)).size(), 2);
}

TEST_F(Trash, WhatIsNotThereIsNotMoved)
{
    EXPECT_FALSE(moveToTrash(at(u"gone"_s)));
}

TEST_F(Trash, WithNoPlaceForATrashTheFileStays)
{
    place(u"data"_s, "a file where the trash's directory would be");
    place(u"a.flac"_s, "audio");
    EXPECT_FALSE(moveToTrash(at(u"a.flac"_s)));
    EXPECT_EQ(bytesOf(u"a.flac"_s), QByteArray("audio"));
    EXPECT_EQ(directoryListing(directory_.path()).size(), 2);
}
