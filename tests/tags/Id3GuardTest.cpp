// Tags that would end the program inside the tag library, or fill the memory, are not handed to it.
#include "tags/Id3Guard.h"

#include "platform/errors/Exceptions.h"
#include "tags/TagFiles.h"
#include "tags/TagLibTagsHelper.h"

#include <QtEndian>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

QByteArray synchsafe(qsizetype size)
{
    QByteArray bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes += static_cast<char>((size >> shift) & 0x7f);
    return bytes;
}

QByteArray frame(const char* name, const QByteArray& body, const QByteArray& flags = QByteArray(2, '\0'))
{
    return name + synchsafe(body.size()) + flags + body;
}

QByteArray tag(const QByteArray& frames)
{
    return QByteArray("ID3\4\0\0", 6) + synchsafe(frames.size()) + frames;
}

QByteArray title(const char* text)
{
    return frame("TIT2", QByteArray("\3") + text);
}

/// A frame whose text is that many mebibytes when it is inflated.
QByteArray compressedFrame(int mebibytes)
{
    const QByteArray text = '\3' + QByteArray(mebibytes << 20, 'A');
    return frame("TALB", synchsafe(text.size()) + qCompress(text, 9).sliced(4), QByteArray("\0\x09", 2));
}

QByteArray chapter(const QByteArray& inner)
{
    return frame("CHAP", "e" + QByteArray(17, '\0') + inner);
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
        EXPECT_FALSE(hasHarmlessFrames(path, Id3Place::BeforeSound));
        for (const auto& read : {helper.tagsForMP3File(path), helper.tagsForAIFFFile(path)})
            EXPECT_TRUE(isBlank(*read));
        EXPECT_THROW(helper.writeTagsForMP3FileTagObjectWriteEmptyTags(path, {}, false), AssertionException);
        EXPECT_THROW(helper.writeTagsForAIFFFileTagObject(path, {}), AssertionException);
    }
    void expectRead(const QByteArray& bytes)
    {
        writeContent(path, bytes);
        EXPECT_TRUE(hasHarmlessFrames(path, Id3Place::BeforeSound));
        EXPECT_EQ(helper.tagsForMP3File(path)->titleText(), OptionalText(u"found"_s));
    }

    TagFiles files;
    const QString path = files.pathOf(u"tagged"_s);
};

} // namespace

TEST_F(Id3Guard, ChaptersInsideChaptersWithoutEndAreRefused)
{
    const QByteArray deep = tag(nestedChapters(50000));
    expectRefused(deep);
    expectRefused(aiffWith(deep));
    expectRefused("junk before" + deep);
}

TEST_F(Id3Guard, TextThatInflatesWithoutEndIsRefused)
{
    const QByteArray large = tag(title("found") + compressedFrame(40));
    expectRefused(large);
    expectRefused(aiffWith(large));
    expectRefused(tag(title("found") + chapter(compressedFrame(40))));
}

TEST_F(Id3Guard, OrdinaryChaptersAndCompressedTextsAreRead)
{
    expectRead(tag(title("found") + compressedFrame(1)));
    expectRead(tag(title("found") + chapter(title("a chapter")).repeated(300)));
    expectRead(tag(chapter(compressedFrame(1)) + title("found")));
}

TEST_F(Id3Guard, LettersOfATagWithinTheSoundAreSound)
{
    const QByteArray sound = contentOf(files.mp3());
    ASSERT_GT(sound.size(), 900);
    writeContent(path, sound.first(800) + tag(compressedFrame(40)) + sound.sliced(800));
    EXPECT_TRUE(hasHarmlessFrames(path, Id3Place::BeforeSound));
    TagsObject tags;
    tags.setTitleText(u"found"_s);
    helper.writeTagsForMP3FileTagObjectWriteEmptyTags(path, tags, false);
    EXPECT_EQ(helper.tagsForMP3File(path)->titleText(), OptionalText(u"found"_s));
    writeContent(path, "junk" + sound.first(800) + tag(compressedFrame(40)));
    EXPECT_TRUE(hasHarmlessFrames(path, Id3Place::BeforeSound));
}

TEST_F(Id3Guard, OtherFilesHaveTheirTagAtTheStartAlone)
{
    writeContent(path, "fLaC" + tag(compressedFrame(40)));
    EXPECT_TRUE(hasHarmlessFrames(path, Id3Place::Start));
    EXPECT_FALSE(hasHarmlessFrames(path, Id3Place::BeforeSound));
    writeContent(path, tag(compressedFrame(40)) + contentOf(files.flac()));
    EXPECT_FALSE(hasHarmlessFrames(path, Id3Place::Start));
}
