// M4A files that end in another way than they should: others read and tag them, and so must we.
#include "tags/AACTagsHelper.h"

#include "support/LogCapture.h"
#include "tags/m4a/M4AFiles.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class M4AEnds : public testing::Test
{
protected:
    QString write(const QByteArray& bytes, const QString& title = u"Название"_s)
    {
        const QString path = files.stored(u"odd.m4a"_s, bytes);
        TagsObject tags;
        tags.setTitleText(title);
        AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, false, false);
        return path;
    }

    void expectTagged(const QString& path, const QByteArray& end)
    {
        EXPECT_EQ(AACTagsHelper().tagsForFile(path)->titleText(), u"Название"_s);
        EXPECT_EQ(seenText(path, "\251nam"), u"Название"_s);
        EXPECT_TRUE(contentOf(path).endsWith(end));
        EXPECT_EQ(packets(path), packets(files.lossless()));
    }

    static QByteArray oldestTag() { return "TAG" + QByteArray("an older title").leftJustified(125, '\0'); }

    M4AFiles files;
};

} // namespace

TEST_F(M4AEnds, AFewBytesBehindTheLastAtomStayThere)
{
    for (const QString& sample : {files.lossless(), files.indexFirst()}) {
        for (const QByteArray& end : {QByteArray("x"), QByteArray("\r\n"), QByteArray("1234567"), QByteArray(9, '\xff'),
                                      QByteArray(7, '\0'), QByteArray(24, '\0')}) {
            SCOPED_TRACE(end.toHex().toStdString());
            const QByteArray bytes = contentOf(sample) + end;
            EXPECT_EQ(AACTagsHelper().tagsForFile(files.stored(u"odd.m4a"_s, bytes))->titleText(), u"Made elsewhere"_s);
            expectTagged(write(bytes), end);
        }
    }
}

TEST_F(M4AEnds, TheOldestTagBehindTheLastAtomStaysThere)
{
    expectTagged(write(contentOf(files.lossless()) + oldestTag()), oldestTag());
    expectTagged(write(contentOf(files.indexFirst()) + oldestTag()), oldestTag());
}

TEST_F(M4AEnds, FragmentsWithATrailerAreTagged)
{
    const QString fragmented = files.fragmented(u"frag_keyframe+empty_moov"_s);
    const QString path = write(contentOf(fragmented) + oldestTag());
    EXPECT_EQ(AACTagsHelper().tagsForFile(path)->titleText(), u"Название"_s);
    EXPECT_EQ(packets(path), packets(fragmented));
}

TEST_F(M4AEnds, CutMediaDataKeepWhatIsThere)
{
    const QByteArray whole = contentOf(files.indexFirst());
    for (const qsizetype missing : {qsizetype(1), qsizetype(5000), whole.size() / 2}) {
        const QByteArray cut = whole.chopped(missing);
        const QString original = files.stored(u"cut.m4a"_s, cut);
        const QString path = write(cut);
        EXPECT_EQ(AACTagsHelper().tagsForFile(path)->titleText(), u"Название"_s);
        EXPECT_EQ(seenText(path, "\251nam"), u"Название"_s);
        EXPECT_TRUE(contentOf(path).endsWith(cut.sliced(cut.indexOf("mdat"))));
        EXPECT_EQ(packets(path), packets(original));
    }
}

TEST_F(M4AEnds, CutMediaDataOfWideAtomsKeepWhatIsThere)
{
    QByteArray whole = contentOf(files.wide());
    const QString first = write(whole); // index first from here on
    const QByteArray cut = contentOf(first).chopped(3000);
    const QString path = write(cut);
    EXPECT_TRUE(contentOf(path).endsWith(cut.sliced(cut.indexOf("mdat"))));
}

TEST_F(M4AEnds, ACutFileThatCannotBeMovedIsTaggedAsItLies)
{
    const QByteArray whole = withIndex(contentOf(files.indexFirst()), [](Mp4Box& index) {
        index.children.push_back({.type = atomType("iloc")}); // positions that are not known here
    });
    const QString path = files.stored(u"odd.m4a"_s, whole.chopped(2000));
    TagsObject tags;
    tags.setTitleText(u"Название"_s);
    const auto write = [&] {
        AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, false, false);
    };
    EXPECT_ANY_THROW(write());
    EXPECT_EQ(AACTagsHelper().tagsForFile(path)->titleText(), u"Название"_s);
    EXPECT_EQ(atomNames(contentOf(path)).constLast(), "moov");
}

TEST_F(M4AEnds, LongJunkIsNoTrailer)
{
    EXPECT_ANY_THROW(write(contentOf(files.lossless()) + QByteArray((1 << 20) + 1, '\xff')));
}

TEST_F(M4AEnds, ACoverThatCannotBeDecodedIsNamedInTheLog)
{
    const QString path =
        files.stored(u"odd.m4a"_s, withItems(contentOf(files.lossless()), item("covr", 13, "\xff\x0a no picture")));
    const LogCapture log;
    const auto tags = AACTagsHelper().tagsForFile(path);
    EXPECT_FALSE(tags->albumArt());
    EXPECT_TRUE(tags->artIsUnreadable());
    EXPECT_EQ(log.count(u"cannot be decoded: "_s + path), 1);
}
