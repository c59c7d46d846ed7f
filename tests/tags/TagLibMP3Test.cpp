#include "tags/TagLibTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "support/FileSizeLimit.h"
#include "support/LogCapture.h"
#include "tags/Id3Samples.h"
#include "tags/TagFiles.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

void write(const QString& path, const TagsObject& tags, bool writeEmptyTags = false)
{
    helper.writeTagsForMP3FileTagObjectWriteEmptyTags(path, tags, writeEmptyTags);
}

TagsObject numbered(const OptionalText& track, const OptionalText& trackTotal, const OptionalText& disc,
                    const OptionalText& discTotal)
{
    TagsObject tags;
    tags.setTrackText(track);
    tags.setTrackTotalText(trackTotal);
    tags.setDiscText(disc);
    tags.setDiscTotalText(discTotal);
    return tags;
}

TagsObject texts()
{
    TagsObject tags = numbered(u"4"_s, u"12"_s, u"2"_s, u"3"_s);
    tags.setTitleText(u"Название"_s);
    tags.setArtistText(u"Künstler"_s);
    tags.setAlbumText(u"アルバム"_s);
    tags.setCommentText(u"הערה"_s);
    tags.setGenreText(u"Жанр"_s);
    tags.setComposerText(u"Compositeur é"_s);
    tags.setDateText(u"1999-05-01"_s);
    return tags;
}

SeenTag frame(const std::vector<SeenTag>& frames, const QString& key)
{
    for (const SeenTag& seen : frames)
        if (seen[u"key"_s].toString() == key) return seen;
    return {};
}

} // namespace

TEST(TagLibMP3, WritesFourLatin1FramesAndTheOthersAsUtf8)
{
    TagFiles files;
    write(files.mp3(), texts());
    const auto frames = rawFrames(files.mp3());
    const std::pair<QString, QString> latin1[] = {
        {u"TPE2"_s, u"Künstler"_s}, {u"TCOM"_s, u"Compositeur é"_s}, {u"TRCK"_s, u"4/12"_s}, {u"TPOS"_s, u"2/3"_s}};
    for (const auto& [key, text] : latin1) {
        EXPECT_EQ(frame(frames, key)[u"encoding"_s].toInt(), 0) << key.toStdString();
        EXPECT_EQ(frame(frames, key)[u"text"_s].toString(), text);
        EXPECT_EQ(countOf(frames, key), 1);
    }
    const std::pair<QString, QString> utf8[] = {{u"TIT2"_s, u"Название"_s},
                                                {u"TPE1"_s, u"Künstler"_s},
                                                {u"TALB"_s, u"アルバム"_s},
                                                {u"TCON"_s, u"Жанр"_s},
                                                {u"TDRC"_s, u"1999"_s}};
    for (const auto& [key, text] : utf8) {
        EXPECT_EQ(frame(frames, key)[u"encoding"_s].toInt(), 3) << key.toStdString();
        EXPECT_EQ(frame(frames, key)[u"text"_s].toString(), text);
    }
    EXPECT_EQ(frame(frames, u"COMM"_s)[u"encoding"_s].toInt(), 3);
}

TEST(TagLibMP3, TextOutsideLatin1IsUtf8InTheFourLatin1Frames)
{
    TagFiles files;
    TagsObject tags = texts();
    tags.setArtistText(u"Имя \U0001D11E"_s);
    tags.setComposerText(u"Ā Чайковский"_s);
    write(files.mp3(), tags);
    const auto frames = rawFrames(files.mp3());
    EXPECT_EQ(frame(frames, u"TPE2"_s)[u"encoding"_s].toInt(), 0);
    EXPECT_EQ(frame(frames, u"TPE2"_s)[u"text"_s].toString(), QString::fromLatin1(u"Имя \U0001D11E"_s.toUtf8()));
    EXPECT_EQ(frame(frames, u"TCOM"_s)[u"encoding"_s].toInt(), 0);
    EXPECT_EQ(frame(frames, u"TCOM"_s)[u"text"_s].toString(), QString::fromLatin1(u"Ā Чайковский"_s.toUtf8()));
    EXPECT_EQ(frame(frames, u"TPE1"_s)[u"text"_s].toString(), u"Имя \U0001D11E"_s);
    EXPECT_EQ(helper.tagsForMP3File(files.mp3())->composerText(), u"Ā Чайковский"_s);
}

TEST(TagLibMP3, Latin1FramesOutliveAWriteOfOtherFields)
{
    TagFiles files;
    TagsObject tags = texts();
    tags.setArtistText(u"Мусоргский"_s);
    tags.setComposerText(u"Чайковский"_s);
    write(files.mp3(), tags);
    const auto before = rawFrames(files.mp3());
    TagsObject title;
    title.setTitleText(u"another"_s);
    write(files.mp3(), title);
    const auto frames = rawFrames(files.mp3());
    for (const QString& key : {u"TPE2"_s, u"TCOM"_s, u"TRCK"_s, u"TPOS"_s}) {
        EXPECT_EQ(frame(frames, key)[u"encoding"_s].toInt(), 0) << key.toStdString();
        EXPECT_EQ(frame(frames, key)[u"text"_s], frame(before, key)[u"text"_s]) << key.toStdString();
    }
    EXPECT_EQ(helper.tagsForMP3File(files.mp3())->composerText(), u"Чайковский"_s);
}

TEST(TagLibMP3, Latin1FramesOfOthersAreReadAsUtf8OnlyIfTheyAre)
{
    TagFiles files;
    const std::pair<QByteArray, QString> composers[] = {
        {"Dvo\xc5\x99\xc3\xa1k", u"Dvořák"_s}, {"Fran\xe7ois", u"François"_s}, {"A\xc3", u"AÃ"_s}, {"Bach", u"Bach"_s}};
    const QByteArray sound = contentOf(files.mp3());
    for (const auto& [bytes, text] : composers) {
        writeContent(files.mp3(), id3Tag(id3Frame("TCOM", '\0' + bytes)) + sound);
        EXPECT_EQ(helper.tagsForMP3File(files.mp3())->composerText(), OptionalText(text));
    }
}

TEST(TagLibMP3, TrackOfTheOldestTagFollows)
{
    TagFiles files;
    write(files.mp3(), texts());
    ASSERT_EQ(contentOf(files.mp3()).right(2).at(0), '\x04');
    write(files.mp3(), numbered(u"9"_s, u"12"_s, std::nullopt, std::nullopt));
    EXPECT_EQ(contentOf(files.mp3()).right(2).at(0), '\x09');
    EXPECT_EQ(textsOf(rawFrames(files.mp3()), u"TRCK"_s), QStringList(u"9/12"_s));
}

TEST(TagLibMP3, FileOfAnotherKindThatHoldsFramesOfThisOneIsLeftAlone)
{
    TagFiles files;
    const QByteArray sound = contentOf(files.mp3());
    for (const QByteArray& start : {QByteArray("\0\0\0\x20"
                                               "ftypM4A ",
                                               12),
                                    QByteArray("fLaC"), QByteArray("OggS"), QByteArray("RIFF"), QByteArray("FORM"),
                                    QByteArray("MAC "), QByteArray("wvpk"), QByteArray("TTA1"), QByteArray("ajkg"),
                                    QByteArray("caff"), QByteArray("\x1a\x45\xdf\xa3")}) {
        writeContent(files.mp3(), start + sound);
        EXPECT_THROW(write(files.mp3(), texts()), AssertionException) << start.toStdString();
        EXPECT_EQ(contentOf(files.mp3()), start + sound) << start.toStdString();
    }
}

TEST(TagLibMP3, TagThatTheLibraryCannotReadWholeIsLeftAlone)
{
    TagFiles files;
    const QByteArray sound = contentOf(files.mp3());
    const QByteArray artist = id3Frame("TPE1", "\3kept");
    const QByteArray extended = QByteArray("\0\0\0\6\0\0\0\0\0\0", 10); // of version 2.3: its size leaves itself out
    QByteArray extendedTag = id3Tag(extended + artist).replace(3, 1, "\3");
    extendedTag[5] = '\x40';
    QByteArray brokenSize = id3Tag(artist + QByteArray(300, '\0'));
    brokenSize[8] = '\x82';
    const std::pair<const char*, QByteArray> tags[] = {
        {"an empty frame ahead of others", id3Tag(id3Frame("TIT2", "") + artist)},
        {"a frame longer than the tag", id3Tag(artist + "TIT2" + QByteArray("\0\0\x7f\0\0\0", 6) + "\3text" + artist)},
        {"small letters", id3Tag(artist + id3Frame("tit2", "\3title") + artist)},
        {"an extended header", extendedTag},
        {"a later version", id3Tag(artist).replace(3, 1, "\5")},
        {"a size that is none", brokenSize},
        {"frames behind zeros", id3Tag(artist + QByteArray(40, '\0') + artist)},
    };
    for (const auto& [fault, tag] : tags) {
        writeContent(files.mp3(), tag + sound);
        EXPECT_THROW(write(files.mp3(), texts()), AssertionException) << fault;
        EXPECT_EQ(contentOf(files.mp3()), tag + sound) << fault;
    }
}

TEST(TagLibMP3, EmptyFramesAndPaddingAtTheEndOfATagLoseNothing)
{
    TagFiles files;
    const QByteArray sound = contentOf(files.mp3());
    const QByteArray artist = id3Frame("TPE1", "\3kept");
    TagsObject title;
    title.setTitleText(u"new"_s);
    for (const QByteArray& end : {QByteArray(), QByteArray(64, '\0'), id3Frame("TIT2", "") + id3Frame("TALB", ""),
                                  id3Frame("TIT2", "") + QByteArray(64, '\0'), QByteArray("\0junk", 5)}) {
        writeContent(files.mp3(), id3Tag(artist + end) + sound);
        write(files.mp3(), title);
        EXPECT_EQ(helper.tagsForMP3File(files.mp3())->artistText(), u"kept"_s);
        EXPECT_EQ(helper.tagsForMP3File(files.mp3())->titleText(), u"new"_s);
    }
}

TEST(TagLibMP3, ReadsBackAllButTheDate)
{
    TagFiles files;
    write(files.mp3(), texts());
    const auto tags = helper.tagsForMP3File(files.mp3());
    EXPECT_EQ(tags->titleText(), OptionalText(u"Название"_s));
    EXPECT_EQ(tags->artistText(), OptionalText(u"Künstler"_s));
    EXPECT_EQ(tags->albumText(), OptionalText(u"アルバム"_s));
    EXPECT_EQ(tags->commentText(), OptionalText(u"הערה"_s));
    EXPECT_EQ(tags->genreText(), OptionalText(u"Жанр"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(u"Compositeur é"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"4"_s));
    EXPECT_EQ(tags->trackTotalText(), OptionalText(u"12"_s));
    EXPECT_EQ(tags->discText(), OptionalText(u"2"_s));
    EXPECT_EQ(tags->discTotalText(), OptionalText(u"3"_s));
    EXPECT_EQ(tags->dateText(), OptionalText(QString()));
    EXPECT_TRUE(tags->customTagsDictionary().isEmpty());
}

TEST(TagLibMP3, PlainDiscIsTheDiscAndPlainTrackIsTheTotal)
{
    TagFiles files;
    setTagsElsewhere(files.mp3(), {u"TPOS=2"_s, u"TRCK=5"_s});
    const auto tags = helper.tagsForMP3File(files.mp3());
    EXPECT_EQ(tags->discText(), OptionalText(u"2"_s));
    EXPECT_EQ(tags->discTotalText(), OptionalText(QString()));
    EXPECT_EQ(tags->trackText(), OptionalText(QString()));
    EXPECT_EQ(tags->trackTotalText(), OptionalText(u"5"_s));
}

TEST(TagLibMP3, NumbersAreSplitAtTheFirstSlash)
{
    TagFiles files;
    setTagsElsewhere(files.mp3(), {u"TPOS=2/3/4"_s, u"TRCK=4/12"_s});
    const auto tags = helper.tagsForMP3File(files.mp3());
    EXPECT_EQ(tags->discText(), OptionalText(u"2"_s));
    EXPECT_EQ(tags->discTotalText(), OptionalText(u"3/4"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"4"_s));
    EXPECT_EQ(tags->trackTotalText(), OptionalText(u"12"_s));
}

TEST(TagLibMP3, EmptyTotalsGiveTheNumbersAlone)
{
    TagFiles files;
    write(files.mp3(), numbered(u"4"_s, QString(), u"2"_s, std::nullopt));
    const auto frames = rawFrames(files.mp3());
    EXPECT_EQ(frame(frames, u"TRCK"_s)[u"text"_s].toString(), u"4"_s);
    EXPECT_EQ(frame(frames, u"TPOS"_s)[u"text"_s].toString(), u"2"_s);
}

TEST(TagLibMP3, TotalsWithoutNumbersAreNotWritten)
{
    TagFiles files;
    write(files.mp3(), numbered(QString(), u"12"_s, std::nullopt, u"3"_s));
    EXPECT_TRUE(rawFrames(files.mp3()).empty());
}

TEST(TagLibMP3, EmptyAndAbsentFieldsLeaveTheFileAsItIs)
{
    TagFiles files;
    write(files.mp3(), texts());
    const auto before = rawFrames(files.mp3());
    TagsObject blank;
    blank.setTitleText(QString());
    write(files.mp3(), blank);
    EXPECT_EQ(textsOf(rawFrames(files.mp3()), u"TIT2"_s), textsOf(before, u"TIT2"_s));
    EXPECT_EQ(rawFrames(files.mp3()).size(), before.size());
}

TEST(TagLibMP3, WritingEmptyTagsEmptiesFieldsAndReplacesFramesByEmptyOnes)
{
    TagFiles files;
    write(files.mp3(), texts());
    write(files.mp3(), TagsObject(), true);
    const auto frames = rawFrames(files.mp3());
    for (const QString& key : {u"TPE2"_s, u"TCOM"_s, u"TRCK"_s, u"TPOS"_s})
        EXPECT_EQ(textsOf(frames, key), QStringList(QString())) << key.toStdString();
    EXPECT_EQ(frames.size(), 4u);
    EXPECT_TRUE(isBlank(*helper.tagsForMP3File(files.mp3())));
}

TEST(TagLibMP3, EmptyTrackStaysEmptyThoughTheOlderTagHadANumber)
{
    TagFiles files;
    write(files.mp3(), texts());
    ASSERT_EQ(contentOf(files.mp3()).right(128).first(3), "TAG");
    ASSERT_EQ(contentOf(files.mp3()).right(2).at(0), '\x04');
    write(files.mp3(), numbered(QString(), u"9"_s, QString(), QString()), true);
    EXPECT_EQ(textsOf(rawFrames(files.mp3()), u"TRCK"_s), QStringList(u"/9"_s));
    TagsObject title;
    title.setTitleText(u"only this"_s);
    write(files.mp3(), title);
    EXPECT_EQ(textsOf(rawFrames(files.mp3()), u"TRCK"_s), QStringList(u"/9"_s));
    write(files.mp3(), TagsObject(), true);
    EXPECT_EQ(textsOf(rawFrames(files.mp3()), u"TRCK"_s), QStringList(QString()));
}

TEST(TagLibMP3, FirstFrameOfEachNameIsReplacedOnly)
{
    TagFiles files;
    write(files.mp3(), texts());
    // A second composer frame, as other programs leave it.
    QByteArray bytes = contentOf(files.mp3());
    const QByteArray second("TCOM\0\0\0\x07\0\0\0second", 17);
    const auto at = bytes.indexOf("TPOS");
    bytes.insert(at, second).remove(bytes.indexOf(QByteArray(200, '\0')), second.size());
    writeContent(files.mp3(), bytes);
    ASSERT_EQ(textsOf(rawFrames(files.mp3()), u"TCOM"_s), QStringList({u"Compositeur é"_s, u"second"_s}));
    TagsObject tags;
    tags.setComposerText(u"new"_s);
    write(files.mp3(), tags);
    EXPECT_EQ(textsOf(rawFrames(files.mp3()), u"TCOM"_s), QStringList({u"second"_s, u"new"_s}));
}

TEST(TagLibMP3, DateIsItsLeadingNumber)
{
    TagFiles files;
    TagsObject tags;
    tags.setDateText(u"1999-05-01"_s);
    write(files.mp3(), tags);
    EXPECT_EQ(textsOf(rawFrames(files.mp3()), u"TDRC"_s), QStringList(u"1999"_s));
    tags.setDateText(u"spring"_s);
    write(files.mp3(), tags);
    EXPECT_EQ(countOf(rawFrames(files.mp3()), u"TDRC"_s), 0);
}

TEST(TagLibMP3, ArtIsAddedAndOnlyTheFirstIsRemoved)
{
    TagFiles files;
    TagsObject tags;
    for (const int width : {20, 30, 40}) {
        tags.setAlbumArt(Image::fromData(contentOf(files.picture("jpeg", width))));
        write(files.mp3(), tags, width == 40);
    }
    EXPECT_EQ(countOf(rawFrames(files.mp3()), u"APIC"_s), 3);
    EXPECT_EQ(helper.tagsForMP3File(files.mp3())->albumArt()->lastBitmap()->pixelsWide(), 20);
    write(files.mp3(), TagsObject(), false);
    EXPECT_EQ(countOf(rawFrames(files.mp3()), u"APIC"_s), 3);
    write(files.mp3(), TagsObject(), true);
    EXPECT_EQ(countOf(rawFrames(files.mp3()), u"APIC"_s), 2);
    EXPECT_EQ(helper.tagsForMP3File(files.mp3())->albumArt()->lastBitmap()->pixelsWide(), 30);
}

TEST(TagLibMP3, ArtIsAPngFrameWithNothingElseSet)
{
    TagFiles files;
    TagsObject tags;
    tags.setAlbumArt(Image::fromData(contentOf(files.picture("jpeg"))));
    write(files.mp3(), tags);
    const auto seen = frame(seenTags(files.mp3()), u"APIC"_s);
    EXPECT_EQ(seen[u"mime"_s].toString(), u"image/png"_s);
    EXPECT_EQ(seen[u"type"_s].toInt(), 0);
    EXPECT_EQ(seen[u"text"_s].toString(), QString());
}

TEST(TagLibMP3, ArtOfAnotherProgramIsRead)
{
    TagFiles files;
    addArtElsewhere(files.mp3(), files.picture("jpeg", 33), u"image/jpeg"_s);
    ASSERT_TRUE(helper.tagsForMP3File(files.mp3())->albumArt());
    EXPECT_EQ(helper.tagsForMP3File(files.mp3())->albumArt()->lastBitmap()->pixelsWide(), 33);
}

TEST(TagLibMP3, FirstPictureFrameThatCannotBeReadIsNoPictureAndStays)
{
    TagFiles files;
    // An encrypted frame ahead of a whole one: the library keeps it closed.
    const QByteArray closed = QByteArray("APIC\0\0\0\5\0\4", 10) + "xxxxx";
    const QByteArray open = QByteArray("APIC\0\0\0\x12\0\0\0", 11) + "image/png" + QByteArray(3, '\0') + "bytes";
    const QByteArray tag = QByteArray("ID3\4\0\0\0\0\0", 9) + char(closed.size() + open.size()) + closed + open;
    writeContent(files.mp3(), tag + contentOf(files.mp3()));
    EXPECT_TRUE(isBlank(*helper.tagsForMP3File(files.mp3())));
    write(files.mp3(), TagsObject(), true);
    const QByteArray after = contentOf(files.mp3());
    EXPECT_TRUE(after.contains("xxxxx"));
    EXPECT_TRUE(after.contains("image/png"));
}

TEST(TagLibMP3, FieldsOfOtherTagsInTheFileAreEmptiedToo)
{
    TagFiles files;
    const auto padded = [](const QByteArray& text, int length) { return text.leftJustified(length, '\0'); };
    writeContent(files.mp3(), contentOf(files.mp3()) + "TAG" + padded("an older title", 30) + padded("Anna", 30) +
                                  padded("", 30) + "1987" + padded("", 28) + QByteArray("\0\5\x11", 3));
    EXPECT_EQ(helper.tagsForMP3File(files.mp3())->titleText(), OptionalText(u"an older title"_s));
    write(files.mp3(), TagsObject(), true);
    EXPECT_TRUE(isBlank(*helper.tagsForMP3File(files.mp3())));
    EXPECT_FALSE(contentOf(files.mp3()).contains("an older title"));
}

TEST(TagLibMP3, TagBehindTheSoundNeedsItsRoomToo)
{
    const LogCapture log;
    TagFiles files;
    TagsObject tags;
    tags.setTitleText(u"short"_s);
    write(files.mp3(), tags); // which leaves padding ahead of the sound
    const QByteArray title = QByteArray("\3\0\0\0\0\0\0\0Title\0old", 17);
    const QByteArray facts = QByteArray("\xd0\7\0\0\x31\0\0\0\1\0\0\0\0\0\0\0", 16) + QByteArray(8, '\0');
    const QByteArray before = contentOf(files.mp3()) + title + "APETAGEX" + facts;
    writeContent(files.mp3(), before);
    ASSERT_EQ(helper.tagsForMP3File(files.mp3())->titleText(), u"short"_s);
    tags.setTitleText(QString(700, u'x'));
    {
        const FileSizeLimit limit(before.size());
        EXPECT_TRUE(helper.writeTagsForMP3FileTagObjectWriteEmptyTags(files.mp3(), tags, false));
    }
    EXPECT_EQ(contentOf(files.mp3()), before);
}
