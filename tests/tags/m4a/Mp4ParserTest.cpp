#include "tags/mp4/Mp4Parser.h"

#include "tags/m4a/M4AFiles.h"
#include "tags/mp4/RandomAccessFile.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

std::optional<Mp4FileAtom> headerOf(const QByteArray& bytes, quint64 available)
{
    return atomHeader(bytes, available);
}

QByteArray nested(int levels)
{
    QByteArray bytes;
    for (int level = 0; level < levels; ++level)
        bytes = atom("udta", bytes);
    return bytes;
}

std::vector<Mp4FileAtom> atomsOf(const QByteArray& bytes)
{
    TagFiles files;
    writeContent(files.pathOf(u"a.m4a"_s), bytes);
    return fileAtoms(RandomAccessFile(files.pathOf(u"a.m4a"_s), RandomAccessFile::Mode::Read));
}

} // namespace

TEST(Mp4Parser, ReadsSmallAndLargeHeaders)
{
    const auto small = headerOf(bigEndian(20, 4) + "free", 20);
    ASSERT_TRUE(small);
    EXPECT_EQ(small->type, atomType("free"));
    EXPECT_EQ(small->headerSize, 8u);
    EXPECT_EQ(small->size, 20u);

    const auto large = headerOf(bigEndian(1, 4) + "mdat" + bigEndian(0x123456789, 8), 0x200000000);
    ASSERT_TRUE(large);
    EXPECT_EQ(large->headerSize, 16u);
    EXPECT_EQ(large->size, 0x123456789u);
}

TEST(Mp4Parser, SizeZeroReachesToTheEnd)
{
    const auto last = headerOf(bigEndian(0, 4) + "mdat", 5000);
    ASSERT_TRUE(last);
    EXPECT_TRUE(last->toEnd);
    EXPECT_EQ(last->size, 5000u);
}

TEST(Mp4Parser, RefusesSizesThatCannotBe)
{
    EXPECT_FALSE(headerOf(bigEndian(7, 4) + "free", 100)) << "smaller than its header";
    EXPECT_FALSE(headerOf(bigEndian(101, 4) + "free", 100)) << "larger than what is around it";
    EXPECT_FALSE(headerOf(bigEndian(0xffffffff, 4) + "free", 100));
    EXPECT_FALSE(headerOf(bigEndian(1, 4) + "mdat" + bigEndian(15, 8), 100)) << "smaller than its large header";
    EXPECT_FALSE(headerOf(bigEndian(1, 4) + "mdat" + bigEndian(0xfffffffffffffff0, 8), 100)) << "negative";
    EXPECT_FALSE(headerOf(bigEndian(1, 4) + "mdat" + bigEndian(20, 4), 100)) << "cut within the large size";
    EXPECT_FALSE(headerOf("abc", 3));
    EXPECT_FALSE(headerOf(bigEndian(0, 4) + "mdat", 7));
}

TEST(Mp4Parser, AtomsOfAFileLeaveNoGap)
{
    const auto atoms = atomsOf(atom("ftyp", "M4A ") + wideAtom("mdat", "12345") + atom("moov"));
    ASSERT_EQ(atoms.size(), 3u);
    EXPECT_EQ(atoms[1].offset, 12u);
    EXPECT_EQ(atoms[1].end(), 33u);
    EXPECT_EQ(atoms[2].type, atomType("moov"));
    EXPECT_THROW(atomsOf(atom("ftyp") + "abc"), Mp4Error);
    EXPECT_THROW(atomsOf(atom("ftyp") + bigEndian(900, 4) + "free"), Mp4Error);
    EXPECT_TRUE(atomsOf({}).empty());
}

TEST(Mp4Parser, WhatIsReadIsWrittenBackByteForByte)
{
    M4AFiles files;
    for (const QString& path : {files.lossless(), files.aac(), files.fromAtomicParsley()}) {
        const QByteArray file = contentOf(path);
        for (const SeenAtom& seen : atomsIn(file, 0, file.size())) {
            const QByteArray bytes = file.mid(seen.offset, seen.size);
            EXPECT_EQ(parsedBox(bytes).serialized(), bytes) << seen.name.toStdString();
        }
    }
}

TEST(Mp4Parser, MetadataWithoutVersionIsReadAndWrittenBack)
{
    const QByteArray full = atom("meta", QByteArray(4, '\0') + atom("hdlr", QByteArray(25, '\0')) + atom("ilst"));
    const QByteArray bare = atom("meta", atom("hdlr", QByteArray(25, '\0')) + atom("ilst"));
    for (const QByteArray& bytes : {full, bare}) {
        const Mp4Box box = parsedBox(bytes);
        EXPECT_TRUE(box.child(atomType("ilst")));
        EXPECT_EQ(box.serialized(), bytes);
    }
    EXPECT_EQ(parsedBox(atom("meta")).serialized(), atom("meta"));
    EXPECT_THROW(parsedBox(atom("meta", "abc")), Mp4Error);
}

TEST(Mp4Parser, ClosingZerosOfUserDataStay)
{
    const QByteArray bytes = atom("udta", atom("name", "x") + QByteArray(4, '\0'));
    EXPECT_EQ(parsedBox(bytes).children.size(), 1u);
    EXPECT_EQ(parsedBox(bytes).serialized(), bytes);
}

TEST(Mp4Parser, ChildrenMustFitIntoTheirParents)
{
    EXPECT_THROW(parsedBox(atom("moov", bigEndian(100, 4) + "trak")), Mp4Error);
    EXPECT_THROW(parsedBox(atom("moov", bigEndian(0, 4) + "trak" + "abcdefgh")), Mp4Error) << "no end of its own";
    EXPECT_THROW(parsedBox(atom("moov", "abcde")), Mp4Error);
    EXPECT_THROW(parsedBox(bigEndian(4, 4) + "moov"), Mp4Error);
}

TEST(Mp4Parser, ItemsAreNotOpenedWhateverTheirName)
{
    const Mp4Box list = parsedBox(atom("ilst", atom("meta", "no atoms at all")));
    ASSERT_EQ(list.children.size(), 1u);
    EXPECT_EQ(list.children.front().body, "no atoms at all");
}

TEST(Mp4Parser, DepthAndCountAreLimited)
{
    EXPECT_NO_THROW(parsedBox(nested(15)));
    EXPECT_THROW(parsedBox(nested(30)), Mp4Error);
    EXPECT_THROW(parsedBox(nested(3000)), Mp4Error);
    EXPECT_THROW(parsedBox(atom("moov", atom("free").repeated(300'000))), Mp4Error);
}

TEST(Mp4Parser, AnIndexThatIsTooLargeIsNotRead)
{
    TagFiles files;
    const QString path = files.pathOf(u"huge.m4a"_s);
    RandomAccessFile file(path, RandomAccessFile::Mode::Create);
    file.write(0, bigEndian(1, 4) + "moov" + bigEndian(5'000'000'000, 8));
    file.resize(5'000'000'000); // all but the header is a hole
    const auto atoms = fileAtoms(file);
    ASSERT_EQ(atoms.size(), 1u);
    EXPECT_THROW(loadBox(file, atoms.front()), Mp4Error);
}

TEST(RandomAccessFile, TakesRegularFilesAlone)
{
    TagFiles files;
    EXPECT_THROW(RandomAccessFile(files.pathOf(u"none"_s), RandomAccessFile::Mode::Read), Mp4Error);
    EXPECT_THROW(RandomAccessFile(files.pathOf({}), RandomAccessFile::Mode::Read), Mp4Error);
    const QString pipe = files.pathOf(u"pipe"_s);
    printed(u"mkfifo"_s, {pipe});
    EXPECT_THROW(RandomAccessFile(pipe, RandomAccessFile::Mode::Read), Mp4Error);
}

TEST(RandomAccessFile, ShortReadsAndCopiesAreFaults)
{
    TagFiles files;
    RandomAccessFile file(files.pathOf(u"a"_s), RandomAccessFile::Mode::Create);
    file.write(0, "0123456789");
    EXPECT_EQ(file.read(3, 4), "3456");
    EXPECT_THROW(file.read(8, 4), Mp4Error);
    RandomAccessFile other(files.pathOf(u"b"_s), RandomAccessFile::Mode::Create);
    other.copyFrom(file, 2, 6, 1);
    EXPECT_EQ(other.read(1, 6), "234567");
    EXPECT_THROW(other.copyFrom(file, 8, 4, 0), Mp4Error);
}
