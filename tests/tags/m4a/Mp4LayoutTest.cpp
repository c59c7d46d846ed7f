#include "tags/mp4/Mp4Layout.h"

#include "tags/m4a/M4AFiles.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;

namespace {

/// Atoms one behind the other, each of 100 bytes times its place.
std::vector<Mp4FileAtom> atoms(const QByteArrayList& names)
{
    std::vector<Mp4FileAtom> result;
    quint64 offset = 0;
    quint64 size = 100;
    for (const QByteArray& name : names) {
        result.push_back({.type = atomType(name.constData()), .offset = offset, .headerSize = 8, .size = size});
        offset += size;
        size += 100;
    }
    return result;
}

/// The names in the new file's order.
QByteArrayList orderOf(const Mp4Layout& layout)
{
    QByteArrayList names;
    bool indexSeen = false;
    for (const Mp4Piece& piece : layout.pieces()) {
        if (!indexSeen && piece.target >= layout.indexTarget()) names.append("moov");
        indexSeen = indexSeen || piece.target >= layout.indexTarget();
        names.append(bigEndian(piece.atom.type, 4));
    }
    return indexSeen ? names : names + QByteArrayList{"moov"};
}

QByteArrayList optimizedOrder(const QByteArrayList& names)
{
    return orderOf(Mp4Layout(atoms(names), 40));
}

} // namespace

TEST(Mp4Layout, TheIndexComesBeforeTheMediaData)
{
    EXPECT_EQ(optimizedOrder({"ftyp", "mdat", "moov"}), QByteArrayList({"ftyp", "moov", "mdat"}));
    EXPECT_EQ(optimizedOrder({"mdat", "moov"}), QByteArrayList({"moov", "mdat"}));
    EXPECT_EQ(optimizedOrder({"ftyp", "mdat", "mdat", "moov", "uuid"}),
              QByteArrayList({"ftyp", "moov", "mdat", "mdat", "uuid"}));
}

TEST(Mp4Layout, AnIndexThatComesFirstStaysWhereItIs)
{
    EXPECT_EQ(optimizedOrder({"ftyp", "uuid", "moov", "zzzz", "mdat"}),
              QByteArrayList({"ftyp", "uuid", "moov", "zzzz", "mdat"}));
    EXPECT_EQ(optimizedOrder({"ftyp", "moov"}), QByteArrayList({"ftyp", "moov"}));
}

TEST(Mp4Layout, FreeSpaceGoes)
{
    EXPECT_EQ(optimizedOrder({"ftyp", "free", "wide", "mdat", "skip", "moov", "free"}),
              QByteArrayList({"ftyp", "moov", "mdat"}));
}

TEST(Mp4Layout, NothingGoesBehindTheFirstFragment)
{
    EXPECT_EQ(optimizedOrder({"ftyp", "free", "moov", "sidx", "free", "moof", "mdat", "free", "mfra"}),
              QByteArrayList({"ftyp", "moov", "sidx", "free", "moof", "mdat", "free", "mfra"}));
    EXPECT_THROW(Mp4Layout(atoms({"ftyp", "moof", "mdat", "moov"}), 40), Mp4Error);
}

TEST(Mp4Layout, PositionsFollowTheirAtoms)
{
    // Old places: ftyp 0, free 100, mdat 300, free 600, mdat 1000, moov 1500, uuid 2100 to 2800.
    const Mp4Layout layout(atoms({"ftyp", "free", "mdat", "free", "mdat", "moov", "uuid"}), 40);
    EXPECT_EQ(layout.indexTarget(), 100u);
    EXPECT_EQ(layout.fileSize(), 100u + 40 + 300 + 500 + 700);
    EXPECT_EQ(layout.moved(0), 0u);
    EXPECT_EQ(layout.moved(308), 148u);
    EXPECT_EQ(layout.moved(599), 439u);
    EXPECT_EQ(layout.moved(600), 440u) << "an empty chunk at the end";
    EXPECT_EQ(layout.moved(1008), 448u);
    EXPECT_EQ(layout.moved(2108), 948u);
    EXPECT_EQ(layout.moved(2800), 1640u);
}

TEST(Mp4Layout, PositionsInWhatGoesAreRefused)
{
    const Mp4Layout layout(atoms({"free", "ftyp", "mdat", "free", "mdat", "moov"}), 40);
    for (const quint64 position : {50u, 650u, 999u, 1600u, 5000u})
        EXPECT_THROW(layout.moved(position), Mp4Error) << position;
    EXPECT_THROW(layout.moved(~0ull), Mp4Error);
}

TEST(Mp4Layout, FreeSpaceIsDroppedOnAllLevels)
{
    const QByteArray space = atom("free", "space");
    const QByteArray table = atom("stbl", space + atom("stsz") + atom("skip"));
    Mp4Box index = parsedBox(atom("moov", space + atom("trak", atom("mdia", atom("minf", table)) + space) +
                                              atom("udta", atom("wide") + atom("name", space))));
    dropFreeSpace(index);
    EXPECT_EQ(index.serialized(), atom("moov", atom("trak", atom("mdia", atom("minf", atom("stbl", atom("stsz"))))) +
                                                   atom("udta", atom("name", space))));
}
