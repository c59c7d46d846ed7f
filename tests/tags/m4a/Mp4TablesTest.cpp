#include "tags/mp4/Mp4Tables.h"

#include "tags/m4a/M4AFiles.h"
#include "tags/mp4/Mp4Parser.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;

namespace {

QByteArray narrowTable(const QList<quint32>& offsets)
{
    QByteArray body = bigEndian(0, 4) + bigEndian(quint64(offsets.size()), 4);
    for (const quint32 offset : offsets)
        body += bigEndian(offset, 4);
    return atom("stco", body);
}

QByteArray wideTable(const QList<quint64>& offsets)
{
    QByteArray body = bigEndian(0, 4) + bigEndian(quint64(offsets.size()), 4);
    for (const quint64 offset : offsets)
        body += bigEndian(offset, 8);
    return atom("co64", body);
}

/// An index with one track and these atoms in its sample table.
Mp4Box indexOf(const QByteArray& tables)
{
    return parsedBox(atom("moov", atom("trak", atom("mdia", atom("minf", atom("stbl", tables))))));
}

QByteArray tablesOf(const Mp4Box& index)
{
    return *payloadOf(index.serialized(), {"moov", "trak", "mdia", "minf", "stbl"});
}

quint64 hundredOn(quint64 position)
{
    return position + 100;
}

Mp4Box indexWithReference(const QByteArray& entries, int count)
{
    const QByteArray references = atom("dref", bigEndian(0, 4) + bigEndian(quint64(count), 4) + entries);
    return parsedBox(atom("moov", atom("trak", atom("mdia", atom("minf", atom("dinf", references))))));
}

} // namespace

TEST(Mp4Tables, NarrowAndWideOffsetsMove)
{
    Mp4Box index = indexOf(narrowTable({1, 70000}) + wideTable({5, 0x100000000}));
    relocateChunks(index, hundredOn);
    EXPECT_EQ(tablesOf(index), narrowTable({101, 70100}) + wideTable({105, 0x100000064}));
}

TEST(Mp4Tables, WideningKeepsTheOffsets)
{
    Mp4Box index = indexOf(narrowTable({1, 0xfffffff0}) + wideTable({7}));
    widenChunkOffsets(index);
    EXPECT_EQ(tablesOf(index), wideTable({1, 0xfffffff0}) + wideTable({7}));
    relocateChunks(index, hundredOn);
    EXPECT_EQ(tablesOf(index), wideTable({101, 0x100000054}) + wideTable({107}));
}

TEST(Mp4Tables, ANarrowTableDoesNotWrapRound)
{
    Mp4Box index = indexOf(narrowTable({0xfffffff0}));
    EXPECT_THROW(relocateChunks(index, hundredOn), Mp4Error);
}

TEST(Mp4Tables, MoreEntriesThanBytesAreRefused)
{
    for (const char* name : {"stco", "co64"}) {
        Mp4Box index = indexOf(atom(name, bigEndian(0, 4) + bigEndian(0xffffffff, 4) + bigEndian(1, 8)));
        EXPECT_THROW(checkIndexTables(index), Mp4Error);
        EXPECT_THROW(relocateChunks(index, hundredOn), Mp4Error);
        EXPECT_THROW(checkIndexTables(indexOf(atom(name, "abc"))), Mp4Error);
    }
}

TEST(Mp4Tables, PositionsThatAreNotUnderstoodAreRefused)
{
    EXPECT_NO_THROW(checkIndexTables(indexOf(narrowTable({1}))));
    EXPECT_THROW(checkIndexTables(indexOf(narrowTable({1}) + atom("saio"))), Mp4Error);
    EXPECT_THROW(checkIndexTables(parsedBox(atom("moov", atom("cmov")))), Mp4Error);
    const QByteArray items = atom("meta", QByteArray(4, '\0') + atom("iloc"));
    EXPECT_THROW(checkIndexTables(parsedBox(atom("moov", items))), Mp4Error);
    EXPECT_THROW(refuseForeignPositions(parsedBox(items)), Mp4Error);
}

TEST(Mp4Tables, MediaInAnotherFileAreRefused)
{
    const QByteArray here = atom("url ", bigEndian(1, 4));
    const QByteArray elsewhere = atom("url ", bigEndian(0, 4) + "file:///a.m4a");
    const QByteArray nowhere = atom("url ", bigEndian(0, 4));
    EXPECT_NO_THROW(checkIndexTables(indexWithReference(here, 1)));
    EXPECT_NO_THROW(checkIndexTables(indexWithReference(nowhere, 1)));
    EXPECT_THROW(checkIndexTables(indexWithReference(here + elsewhere, 2)), Mp4Error);
    EXPECT_THROW(checkIndexTables(indexWithReference(here, 2)), Mp4Error) << "one entry is missing";
    EXPECT_THROW(checkIndexTables(indexWithReference(QByteArray(12, '\0'), 1)), Mp4Error) << "an entry of no length";
}

TEST(Mp4Tables, FragmentsKeepTheirSizeAndMoveTheirBase)
{
    const QByteArray withBase = atom("tfhd", bigEndian(1, 4) + bigEndian(1, 4) + bigEndian(5000, 8));
    const QByteArray relative = atom("tfhd", bigEndian(0x020000, 4) + bigEndian(1, 4) + bigEndian(5000, 8));
    Mp4Box fragment = parsedBox(atom("moof", atom("traf", withBase) + atom("traf", relative)));
    relocateFragment(fragment, hundredOn);
    const QByteArray moved = atom("tfhd", bigEndian(1, 4) + bigEndian(1, 4) + bigEndian(5100, 8));
    EXPECT_EQ(fragment.serialized(), atom("moof", atom("traf", moved) + atom("traf", relative)));

    Mp4Box cut = parsedBox(atom("moof", atom("traf", atom("tfhd", bigEndian(1, 4) + bigEndian(1, 4)))));
    EXPECT_THROW(relocateFragment(cut, hundredOn), Mp4Error);
}

TEST(Mp4Tables, TheTableOfFragmentsMovesInBothWidths)
{
    // The third word says how long the last three fields of an entry are: here one, two and four bytes.
    const auto table = [](int version, int width, quint64 first, quint64 second) {
        const QByteArray rest = bigEndian(9, 1 + 2 + 4);
        return atom("tfra", bigEndian(quint64(version) << 24, 4) + bigEndian(1, 4) + bigEndian(0b000111, 4) +
                                bigEndian(2, 4) + bigEndian(33, width) + bigEndian(first, width) + rest +
                                bigEndian(44, width) + bigEndian(second, width) + rest);
    };
    Mp4Box fragments = parsedBox(atom("mfra", table(0, 4, 1000, 2000) + table(1, 8, 0x100000000, 3000)));
    relocateFragmentTable(fragments, hundredOn);
    EXPECT_EQ(fragments.serialized(), atom("mfra", table(0, 4, 1100, 2100) + table(1, 8, 0x100000064, 3100)));
}

TEST(Mp4Tables, ATableOfFragmentsWithTooManyEntriesIsRefused)
{
    Mp4Box fragments = parsedBox(
        atom("mfra", atom("tfra", bigEndian(0, 4) + bigEndian(1, 4) + bigEndian(0, 4) + bigEndian(0xffffffff, 4))));
    EXPECT_THROW(relocateFragmentTable(fragments, hundredOn), Mp4Error);
}
