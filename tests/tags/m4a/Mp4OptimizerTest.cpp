#include "tags/mp4/Mp4Optimizer.h"

#include "tags/m4a/M4AFiles.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Mp4Optimizer : public testing::Test
{
protected:
    QString optimized(const QString& path)
    {
        const QString target = files_.pathOf(u"optimized.m4a"_s);
        writeOptimized(Mp4Document(path, Mp4Document::Access::Read), target);
        return target;
    }

    /// The index is first, the packets are the same, and the file decodes.
    void expectSameAudio(const QString& source)
    {
        SCOPED_TRACE(source.toStdString());
        const QByteArray before = contentOf(source);
        const QString target = optimized(source);
        const QByteArrayList names = atomNames(contentOf(target));
        EXPECT_LT(names.indexOf("moov"), names.indexOf("mdat"));
        EXPECT_EQ(packets(target), packets(source));
        EXPECT_TRUE(decodesCleanly(target));
        EXPECT_EQ(contentOf(source), before);
    }

    void expectRefused(const QByteArray& bytes)
    {
        const QString path = files_.stored(u"refused.m4a"_s, bytes);
        EXPECT_THROW(optimized(path), Mp4Error);
        EXPECT_EQ(contentOf(path), bytes);
    }

    QByteArray indexedAs(const std::function<void(Mp4Box&)>& change)
    {
        return withIndex(contentOf(files_.lossless()), change);
    }

    M4AFiles files_;
};

/// A file of three atoms with two chunks, to be looked at byte by byte.
QByteArray handMade(const QByteArray& before, const QByteArray& mediaHeader, quint64 firstChunk, bool indexLast = true)
{
    const QByteArray offsets =
        bigEndian(0, 4) + bigEndian(2, 4) + bigEndian(firstChunk, 4) + bigEndian(firstChunk + 4, 4);
    const QByteArray tables = atom("stbl", atom("stco", offsets));
    const QByteArray index = atom("moov", atom("trak", atom("mdia", atom("minf", tables))));
    const QByteArray media = mediaHeader + "AAAABBBB";
    return before + (indexLast ? media + index : index + media);
}

QByteArray chunkOffsets(const QByteArray& file, const char* table = "stco")
{
    return payloadOf(file, {"moov", "trak", "mdia", "minf", "stbl", table})->mid(8);
}

} // namespace

TEST_F(Mp4Optimizer, KeepsTheAudioOfSeveralWriters)
{
    for (const QString& path :
         {files_.lossless(), files_.aac(), files_.indexFirst(), files_.fromAtomicParsley(), files_.fromMutagen()})
        expectSameAudio(path);
}

TEST_F(Mp4Optimizer, KeepsTheAudioOfSixtyFourBitFiles)
{
    ASSERT_EQ(packets(files_.wide()), packets(files_.lossless()));
    expectSameAudio(files_.wide());
}

TEST_F(Mp4Optimizer, KeepsTheAudioOfFragments)
{
    for (const QString& flags :
         {u"frag_custom"_s, u"frag_keyframe+empty_moov"_s, u"frag_keyframe+empty_moov+default_base_moof"_s,
          u"dash+global_sidx"_s, u"frag_keyframe+empty_moov+omit_tfhd_offset"_s})
        expectSameAudio(files_.fragmented(flags));
}

TEST_F(Mp4Optimizer, FragmentsThatMoveAreStillFound)
{
    for (const QString& flags : {u"frag_keyframe+empty_moov"_s, u"dash+global_sidx"_s, u"frag_custom"_s}) {
        const QString plain = files_.fragmented(flags);
        // A longer index moves the fragments away from where their own tables expect them.
        Mp4Document document(plain, Mp4Document::Access::Read);
        document.index().children.push_back({.type = atomType("zzzz"), .body = QByteArray(1000, 'z')});
        const QString target = files_.pathOf(u"moved.m4a"_s);
        writeOptimized(document, target);
        EXPECT_EQ(QFileInfo(target).size(), QFileInfo(plain).size() + 1008);
        EXPECT_EQ(packets(target), packets(plain)) << flags.toStdString();
        EXPECT_TRUE(decodesCleanly(target));
    }
}

TEST_F(Mp4Optimizer, TheTableOfFragmentsPointsAtThem)
{
    Mp4Document document(files_.fragmented(u"frag_keyframe+empty_moov"_s), Mp4Document::Access::Read);
    document.index().children.push_back({.type = atomType("zzzz"), .body = QByteArray(92, 'z')});
    const QString target = files_.pathOf(u"moved.m4a"_s);
    writeOptimized(document, target);
    const QByteArray file = contentOf(target);
    const QByteArray table = *payloadOf(file, {"mfra", "tfra"});
    int fragments = 0;
    for (const SeenAtom& seen : atomsIn(file, 0, file.size())) {
        if (seen.name != "moof") continue;
        EXPECT_TRUE(table.contains(bigEndian(quint64(seen.offset), 8))) << seen.offset;
        ++fragments;
    }
    EXPECT_GT(fragments, 3);
}

TEST_F(Mp4Optimizer, AnOptimisedFileStaysAsItIs)
{
    for (const QString& path : {files_.lossless(), files_.fromAtomicParsley(), files_.wide()}) {
        const QByteArray once = contentOf(optimized(path));
        EXPECT_EQ(contentOf(optimized(files_.stored(u"once.m4a"_s, once))), once);
    }
}

TEST_F(Mp4Optimizer, FreeSpaceIsGoneFromTheWholeFile)
{
    for (const QString& source : {files_.fromAtomicParsley(), files_.fromMutagen()}) {
        const auto structure = [](const QString& path) { return printed(u"AtomicParsley"_s, {path, u"-T"_s}); };
        ASSERT_TRUE(structure(source).contains(u"Atom free"_s));
        const QString target = optimized(source);
        EXPECT_FALSE(structure(target).contains(u"Atom free"_s));
        EXPECT_LT(QFileInfo(target).size(), QFileInfo(source).size());
    }
}

TEST_F(Mp4Optimizer, TagsAndCoverStay)
{
    for (const QString& source : {files_.fromAtomicParsley(), files_.fromMutagen()}) {
        const auto items = [](const QString& path) {
            return payloadOf(contentOf(path), {"moov", "udta", "meta", "ilst"});
        };
        ASSERT_TRUE(items(source)->contains("covr") || items(source)->contains("com.example"));
        EXPECT_EQ(items(optimized(source)), items(source));
    }
}

TEST_F(Mp4Optimizer, UnknownAtomsStayByteForByte)
{
    const QByteArray unknown = atom("zzzz", "whatever");
    const QByteArray identified = atom("uuid", "0123456789abcdef and more");
    QByteArray file =
        indexedAs([](Mp4Box& index) { index.children.push_back({.type = atomType("yyyy"), .body = "in the index"}); });
    file += unknown + identified;
    const QString source = files_.stored(u"unknown.m4a"_s, file);
    expectSameAudio(source);
    const QByteArray target = contentOf(optimized(source));
    EXPECT_EQ(atomNames(target), QByteArrayList({"ftyp", "moov", "mdat", "zzzz", "uuid"}));
    EXPECT_TRUE(target.endsWith(unknown + identified));
    EXPECT_EQ(payloadOf(target, {"moov", "yyyy"}), "in the index");
}

TEST_F(Mp4Optimizer, NarrowOffsetsPointAtTheSameBytes)
{
    const QByteArray file = handMade(atom("ftyp") + atom("free", "space"), bigEndian(16, 4) + "mdat", 29);
    const QByteArray target = contentOf(optimized(files_.stored(u"small.m4a"_s, file)));
    const auto first = quint64(target.indexOf("AAAA"));
    EXPECT_EQ(chunkOffsets(target), bigEndian(first, 4) + bigEndian(first + 4, 4));
}

TEST_F(Mp4Optimizer, MediaDataUpToTheEndOfTheFileStaySo)
{
    const QByteArray file = handMade(atom("ftyp"), bigEndian(0, 4) + "mdat", 80, false);
    const QByteArray target = contentOf(optimized(files_.stored(u"open.m4a"_s, file)));
    EXPECT_EQ(target, file);
}

TEST_F(Mp4Optimizer, AnIndexUpToTheEndOfTheFileGetsItsSize)
{
    QByteArray file = handMade(atom("ftyp"), bigEndian(16, 4) + "mdat", 16);
    const qsizetype index = file.indexOf("moov") - 4;
    const QByteArray size = file.mid(index, 4);
    file.replace(index, 4, bigEndian(0, 4));
    const QByteArray target = contentOf(optimized(files_.stored(u"open.m4a"_s, file)));
    EXPECT_EQ(atomNames(target), QByteArrayList({"ftyp", "moov", "mdat"}));
    EXPECT_EQ(target.mid(8, 4), size);
}

TEST_F(Mp4Optimizer, RefusesWhatItCannotMoveSafely)
{
    expectRefused(
        handMade(atom("ftyp") + atom("free", "AAAABBBB"), bigEndian(16, 4) + "mdat", 16)); // data in free space
    expectRefused(handMade(atom("ftyp"), bigEndian(16, 4) + "mdat", 5000));                // beyond the end
    expectRefused(contentOf(files_.lossless()) + atom("meta", QByteArray(4, '\0') + atom("iloc")));
    expectRefused(indexedAs([](Mp4Box& index) { index.children.push_back({.type = atomType("cmov")}); }));
}

TEST_F(Mp4Optimizer, RefusesBrokenFiles)
{
    const QByteArray whole = contentOf(files_.lossless());
    expectRefused({});
    expectRefused("fLaC and something else");
    expectRefused(whole.first(whole.size() - 1));
    expectRefused(whole.first(whole.indexOf("moov") - 4));
    expectRefused(whole + whole);
}

TEST_F(Mp4Optimizer, ModeIsTakenOver)
{
    const QString source = files_.copyOf(files_.lossless());
    for (const mode_t mode : {0640u, 0444u, 0755u}) {
        ASSERT_EQ(chmod(QFile::encodeName(source).constData(), mode), 0);
        const QString target = optimized(source);
        struct stat status = {};
        ASSERT_EQ(stat(QFile::encodeName(target).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode);
        QFile::remove(target);
    }
}

TEST_F(Mp4Optimizer, OwnerIsTakenOver)
{
    const QString source = files_.copyOf(files_.lossless());
    if (chown(QFile::encodeName(source).constData(), 12345, 23456) != 0)
        GTEST_SKIP() << "only root can give a file away";
    const QString target = optimized(source);
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(target).constData(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345u);
    EXPECT_EQ(status.st_gid, 23456u);
}

TEST_F(Mp4Optimizer, AnIndexStoredInPlaceMovesNoMediaData)
{
    const QString path = files_.copyOf(files_.indexFirst());
    const QByteArray before = contentOf(path);
    Mp4Document document(path, Mp4Document::Access::Modify);
    document.index().children.push_back({.type = atomType("zzzz"), .body = "new"});
    document.storeIndexInPlace();
    const QByteArray after = contentOf(path);
    EXPECT_EQ(atomNames(after), atomNames(QByteArray(before).replace("moov", "free")) + QByteArrayList{"moov"});
    EXPECT_EQ(after.first(before.size()), QByteArray(before).replace("moov", "free"));
    EXPECT_EQ(payloadOf(after, {"moov", "zzzz"}), "new");
    EXPECT_EQ(packets(path), packets(files_.indexFirst()));
    expectSameAudio(path);
}

TEST_F(Mp4Optimizer, MediaDataUpToTheEndAreClosedBeforeAnIndexIsStoredBehind)
{
    const QByteArray file = handMade(atom("ftyp"), bigEndian(0, 4) + "mdat", 80, false);
    const QString path = files_.stored(u"open.m4a"_s, file);
    Mp4Document(path, Mp4Document::Access::Modify).storeIndexInPlace();
    const QByteArray after = contentOf(path);
    EXPECT_EQ(atomNames(after), QByteArrayList({"ftyp", "free", "mdat", "moov"}));
    EXPECT_TRUE(contentOf(optimized(path)).endsWith(atom("mdat", "AAAABBBB")));
}

TEST_F(Mp4Optimizer, TheIndexOfFragmentsIsNeverStoredBehindThem)
{
    const QString path = files_.copyOf(files_.fragmented(u"frag_keyframe+empty_moov"_s));
    const QByteArray before = contentOf(path);
    Mp4Document document(path, Mp4Document::Access::Modify);
    EXPECT_THROW(document.storeIndexInPlace(), Mp4Error);
    EXPECT_EQ(contentOf(path), before);
}
