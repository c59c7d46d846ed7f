#include "ListFixture.h"

#include "checksum/MD5Helper.h"

#include <QCryptographicHash>

#include <sys/stat.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const QString digestOfNothing = u"d41d8cd98f00b204e9800998ecf8427e"_s;

class Digest : public ListTest
{
};

} // namespace

TEST_F(Digest, IsThirtyTwoLowerCaseDigits)
{
    EXPECT_EQ(MD5Helper::getMD5FromFile(write(u"a.wav"_s, "abc")), u"900150983cd24fb0d6963f7d28e17f72"_s);
}

TEST_F(Digest, TakesFilesOfSeveralBlocksWhole)
{
    for (const int size : {1048575, 1048576, 1048577, 3 * 1048576 + 7}) {
        QByteArray bytes(size, 'x');
        bytes[size - 1] = 'y';
        const QByteArray expected = QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
        EXPECT_EQ(MD5Helper::getMD5FromFile(write(u"a"_s, bytes)), QString::fromLatin1(expected)) << size;
    }
}

TEST_F(Digest, OfAMissingAnUnreadableAndAnEmptyFileIsThatOfNothing)
{
    EXPECT_EQ(MD5Helper::getMD5FromFile(pathOf(u"missing"_s)), digestOfNothing);
    EXPECT_EQ(MD5Helper::getMD5FromFile(write(u"empty"_s, "")), digestOfNothing);
    EXPECT_EQ(MD5Helper::getMD5FromFile(folder_.path()), digestOfNothing) << "a folder opens and reads with an error";
    ASSERT_EQ(::mknod(QFile::encodeName(pathOf(u"socket"_s)).constData(), S_IFSOCK | 0600, 0), 0);
    EXPECT_EQ(MD5Helper::getMD5FromFile(pathOf(u"socket"_s)), digestOfNothing) << "nobody may open a socket as a file";
}

TEST_F(Digest, OfAPipeThatNobodyWritesToDoesNotWait)
{
    const QString pipe = pathOf(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(MD5Helper::getMD5FromFile(pipe), digestOfNothing);
}
