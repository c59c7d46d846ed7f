#include "platform/files/FileUris.h"

#include "platform/files/FileNames.h"
#include "support/test.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(FileUris, ANameGoesBothWaysWithoutTheLossOfAByte)
{
    for (const QByteArray& bytes : {QByteArray("/a/b.flac"), QByteArray("/s\xe4tze/\xff\xfe"),
                                    QByteArray("/s\xc3\xa4tze"), QByteArray("/100%/a#b?c %E4")}) {
        const QString path = nameOfBytes(bytes);
        EXPECT_EQ(pathOfUri(QUrl(uriOfPath(path))), path) << bytes.toStdString();
    }
    EXPECT_EQ(uriOfPath(nameOfBytes("/s\xe4tze")), u"file:///s%E4tze"_s);
}

TEST(FileUris, OnlyFilesOfThisMachineHaveAPath)
{
    EXPECT_EQ(pathOfUri(QUrl(u"file://localhost/a"_s)), u"/a"_s);
    EXPECT_EQ(pathOfUri(QUrl(u"file://elsewhere/a"_s)), std::nullopt);
    EXPECT_EQ(pathOfUri(QUrl(u"https://example.org/a"_s)), std::nullopt);
    EXPECT_EQ(pathOfUri(QUrl(u"/a"_s)), std::nullopt);
}
