#include "platform/files/TextFile.h"

#include "support/LogCapture.h"

#include <QFile>
#include <QStringEncoder>

#include <sys/stat.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class TextFile : public testing::Test
{
protected:
    OptionalText readBack(const QByteArray& bytes)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return read();
    }
    OptionalText read() { return readTextInThreeTries(path, UnreadableLine::PathAndReason); }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"names.txt"_s);
    const LogCapture log;
};

const QString text = u"1. Ночь\r\n2. \U0001D11E Jam\n"_s;

} // namespace

TEST_F(TextFile, ByteOrderMarksTellTheEncodingAndAreNoPartOfTheText)
{
    using Encoding = QStringConverter::Encoding;
    for (const auto encoding :
         {Encoding::Utf8, Encoding::Utf16LE, Encoding::Utf16BE, Encoding::Utf32LE, Encoding::Utf32BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        const QByteArray bytes = encoder.encode(text);
        EXPECT_EQ(readBack(bytes), OptionalText(text)) << QStringConverter::nameForEncoding(encoding);
    }
    EXPECT_EQ(log.lines(), QStringList());
}

TEST_F(TextFile, WithoutAMarkTheTextIsReadAsUtf8)
{
    EXPECT_EQ(readBack(text.toUtf8()), OptionalText(text));
    EXPECT_EQ(log.lines(),
              QStringList({u"error The file has no byte-order mark."_s, u"Trying to open as unicode..."_s}));
    EXPECT_EQ(readBack(QByteArray()), OptionalText(QString()));
    EXPECT_EQ(readBack(QByteArray("a\0b", 3)), OptionalText(QString::fromLatin1("a\0b", 3)));
}

TEST_F(TextFile, WhatIsNeitherUtf8NorAsciiIsToldAndGivesNoText)
{
    EXPECT_EQ(readBack("1. Caf\xe9"), std::nullopt);
    EXPECT_EQ(log.lines(),
              QStringList({u"error The file has no byte-order mark."_s, u"Trying to open as unicode..."_s,
                           u"error The text is not UTF-8."_s, u"Last hope: opening using NSASCIIStringEncoding..."_s,
                           u"error The text is not ASCII."_s,
                           u"Could not open file...%1 The text is not ASCII."_s.arg(path)}));
}

TEST_F(TextFile, AMarkThatLiesIsNotBelieved)
{
    // The first halves of pairs alone, behind the mark of UTF-16.
    EXPECT_EQ(readBack(QByteArray("\xff\xfe\x3d\xd8\x3d\xd8", 6)), std::nullopt);
    EXPECT_EQ(log.count(u"does not fit its byte-order mark"_s), 1);
}

TEST_F(TextFile, TheLastLineMayLeaveRoomForAText)
{
    EXPECT_EQ(readTextInThreeTries(path, UnreadableLine::PathTextAndReason), std::nullopt);
    EXPECT_EQ(log.lines().constLast(), u"Could not open file...%1  No such file or directory"_s.arg(path));
    EXPECT_EQ(log.lines().size(), 6);
}

TEST_F(TextFile, FoldersPipesAndHugeFilesAreRefused)
{
    EXPECT_EQ(readTextInThreeTries(folder.path(), UnreadableLine::PathAndReason), std::nullopt);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_EQ(read(), std::nullopt);
    ASSERT_TRUE(QFile::remove(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize((64 << 20) + 1));
    EXPECT_EQ(read(), std::nullopt);
    EXPECT_EQ(log.count(u"too large for a text"_s), 4);
}

TEST_F(TextFile, WordsForAPersonTellEncodingFromWhatCannotBeOpened)
{
    EXPECT_EQ(unreadableTextInWords(path),
              u"%1 cannot be read: No such file or directory"_s.arg(path::lastComponent(path)));
    EXPECT_EQ(unreadableTextInWords(folder.path()),
              u"%1 cannot be read: It is not a file."_s.arg(path::lastComponent(folder.path())));
    EXPECT_EQ(readBack("1. Caf\xe9"), std::nullopt);
    EXPECT_EQ(unreadableTextInWords(path), u"%1 is not UTF-8; save it as UTF-8"_s.arg(path::lastComponent(path)));
}
