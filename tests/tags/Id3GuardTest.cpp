// Tags that would end the program inside the tag library, or fill the memory, are not handed to it.
#include "tags/Id3Guard.h"

#include "platform/errors/Exceptions.h"
#include "tags/Id3Samples.h"
#include "tags/TagFiles.h"
#include "tags/TagLibTagsHelper.h"

#include <QtEndian>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

QByteArray title(const char* text)
{
    return id3Frame("TIT2", QByteArray("\3") + text);
}

/// A frame whose text is that many mebibytes when it is inflated.
QByteArray compressedFrame(int mebibytes)
{
    return compressedId3Frame("TALB", '\3' + QByteArray(mebibytes << 20, 'A'));
}

QByteArray chapter(const QByteArray& inner)
{
    return id3Frame("CHAP", "e" + QByteArray(17, '\0') + inner);
}

QByteArray nestedChapters(int depth)
{
    // From the outside in: wrapping ever larger texts would take minutes.
    const qsizetype level = 28;
    QByteArray bytes;
    for (int i = 0; i < depth; ++i)
        bytes += "CHAP" + synchsafe(level * (depth - i) - 10) + QByteArray(2, '\0') + "e" + QByteArray(17, '\0');
    return bytes;
}

QByteArray aiffWith(const QByteArray& id3)
{
    const auto number = [](qsizetype value) {
        QByteArray bytes(4, '\0');
        qToBigEndian(static_cast<quint32>(value), bytes.data());
        return bytes;
    };
    const QByteArray chunk = "ID3 " + number(id3.size()) + id3;
    return "FORM" + number(4 + chunk.size()) + "AIFF" + chunk;
}

class Id3Guard : public testing::Test
{
protected:
    void expectRefused(const QByteArray& bytes)
    {
        writeContent(path, bytes);
        EXPECT_FALSE(hasHarmlessFrames(Id3Bytes::of(path, Id3Place::BeforeSound)));
        for (const auto& read : {helper.tagsForMP3File(path), helper.tagsForAIFFFile(path)})
            EXPECT_TRUE(isBlank(*read));
        EXPECT_THROW(helper.writeTagsForMP3FileTagObjectWriteEmptyTags(path, {}, false), AssertionException);
        EXPECT_THROW(helper.writeTagsForAIFFFileTagObject(path, {}), AssertionException);
    }
    void expectRead(const QByteArray& bytes)
    {
        writeContent(path, bytes);
        EXPECT_TRUE(hasHarmlessFrames(Id3Bytes::of(path, Id3Place::BeforeSound)));
        EXPECT_EQ(helper.tagsForMP3File(path)->titleText(), OptionalText(u"found"_s));
    }

    TagFiles files;
    const QString path = files.pathOf(u"tagged"_s);
};

} // namespace

TEST_F(Id3Guard, ChaptersInsideChaptersWithoutEndAreRefused)
{
    const QByteArray deep = id3Tag(nestedChapters(50000));
    expectRefused(deep);
    expectRefused(aiffWith(deep));
    expectRefused("junk before" + deep);
}

TEST_F(Id3Guard, TextThatInflatesWithoutEndIsRefused)
{
    const QByteArray large = id3Tag(title("found") + compressedFrame(40));
    expectRefused(large);
    expectRefused(aiffWith(large));
    expectRefused(id3Tag(title("found") + chapter(compressedFrame(40))));
}

TEST_F(Id3Guard, OrdinaryChaptersAndCompressedTextsAreRead)
{
    expectRead(id3Tag(title("found") + compressedFrame(1)));
    expectRead(id3Tag(title("found") + chapter(title("a chapter")).repeated(300)));
    expectRead(id3Tag(chapter(compressedFrame(1)) + title("found")));
}

TEST_F(Id3Guard, ShowOfManyChaptersIsRead)
{
    // Their names look like frames, and the list of contents repeats them.
    QByteArray chapters;
    QByteArray names;
    for (int i = 0; i < 400; ++i) {
        const QByteArray name = "CHAP" + QByteArray::number(i) + '\0';
        chapters += id3Frame("CHAP", name + QByteArray(16, '\0') + title("a song"));
        if (i < 255) names += name;
    }
    const QByteArray contents = id3Frame("CTOC", QByteArray("toc\0\3\xff", 6) + names + title("contents"));
    expectRead(id3Tag(title("found") + contents + chapters));
}

TEST_F(Id3Guard, CompressedCoverIsRead)
{
    const QByteArray picture = contentOf(files.picture("bmp", 3000));
    const QByteArray body = QByteArray("\0image/bmp\0\3\0", 13) + picture;
    expectRead(id3Tag(title("found") + compressedId3Frame("APIC", body)));
    EXPECT_TRUE(helper.tagsForMP3File(path)->albumArt());
}

TEST_F(Id3Guard, ManyTextsThatInflateTogetherAreRefused)
{
    expectRefused(id3Tag(title("found") + compressedFrame(5).repeated(8)));
    expectRefused(
        id3Tag(title("found") + compressedId3Frame("CHAP", "e" + QByteArray(17, '\0') + compressedFrame(40))));
}

TEST_F(Id3Guard, LettersOfATagWithinTheSoundAreSound)
{
    const QByteArray sound = contentOf(files.mp3());
    ASSERT_GT(sound.size(), 900);
    writeContent(path, sound.first(800) + id3Tag(compressedFrame(40)) + sound.sliced(800));
    EXPECT_TRUE(hasHarmlessFrames(Id3Bytes::of(path, Id3Place::BeforeSound)));
    TagsObject tags;
    tags.setTitleText(u"found"_s);
    helper.writeTagsForMP3FileTagObjectWriteEmptyTags(path, tags, false);
    EXPECT_EQ(helper.tagsForMP3File(path)->titleText(), OptionalText(u"found"_s));
    writeContent(path, "junk" + sound.first(800) + id3Tag(compressedFrame(40)));
    EXPECT_TRUE(hasHarmlessFrames(Id3Bytes::of(path, Id3Place::BeforeSound)));
}

TEST_F(Id3Guard, OtherFilesHaveTheirTagAtTheStartAlone)
{
    writeContent(path, "fLaC" + id3Tag(compressedFrame(40)));
    EXPECT_TRUE(hasHarmlessFrames(Id3Bytes::of(path, Id3Place::Start)));
    EXPECT_FALSE(hasHarmlessFrames(Id3Bytes::of(path, Id3Place::BeforeSound)));
    writeContent(path, id3Tag(compressedFrame(40)) + contentOf(files.flac()));
    EXPECT_FALSE(hasHarmlessFrames(Id3Bytes::of(path, Id3Place::Start)));
}
