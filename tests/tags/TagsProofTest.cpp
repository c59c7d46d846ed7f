// What is written here is read by programs that share no code with the tag library, and the other way round.
#include "tags/TagFormats.h"

#include "support/FileSizeLimit.h"

#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>

#include <random>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

class TagsProof : public TagFormatTest
{
protected:
    /// The container's tags by name in lower case, as the media prober sees them.
    QHash<QString, QVariant> probed()
    {
        const QString json = printed(
            u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags"_s, u"-of"_s, u"json"_s, path()});
        const auto tags = QJsonDocument::fromJson(json.toUtf8())[u"format"_s][u"tags"_s].toObject().toVariantHash();
        QHash<QString, QVariant> lowered;
        for (const auto& [key, value] : tags.asKeyValueRange())
            lowered.insert(key.toLower(), value);
        return lowered;
    }

    /// What the tag editor answers; a picture's or text's line end is cut.
    QString edited(const QString& command) { return printed(u"kid3-cli"_s, {u"-c"_s, command, path()}).remove(u'\n'); }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, TagsProof, testing::ValuesIn(tagFormats()), nameOfFormat);

TEST_P(TagsProof, DifficultTextsAreReadByTheProberAndByAnotherLibrary)
{
    for (const QString& text : difficultTexts()) {
        TagsObject tags;
        tags.setTitleText(text);
        tags.setArtistText(u"Исполнитель"_s);
        tags.setAlbumText(text.left(100));
        tags.setGenreText(u"Рок"_s);
        write(tags);
        const auto facts = probed();
        EXPECT_EQ(facts[u"title"_s].toString(), text);
        EXPECT_EQ(facts[u"artist"_s].toString(), u"Исполнитель"_s);
        EXPECT_EQ(facts[u"album"_s].toString(), text.left(100));
        EXPECT_EQ(facts[u"genre"_s].toString(), u"Рок"_s);
        const auto seen = seenTags(path());
        const QStringList titles = textsOf(seen, u"TITLE"_s) + textsOf(seen, u"Title"_s) + textsOf(seen, u"TIT2"_s);
        EXPECT_EQ(titles, QStringList(text));
        EXPECT_EQ(read()->titleText(), OptionalText(text));
    }
}

TEST_P(TagsProof, DifficultTextsOfAnotherLibraryAreReadHere)
{
    const bool framed = path().endsWith(u".mp3"_s) || path().endsWith(u".aiff"_s);
    for (const QString& text : difficultTexts()) {
        const QString fresh = files.pathOf(u"fresh."_s + path().section(u'.', -1));
        writeContent(fresh, contentOf(path()));
        setTagsElsewhere(fresh, framed ? QStringList{u"TIT2="_s + text, u"TPE1=名前"_s, u"COMM=note "_s + text}
                                       : QStringList{u"TITLE="_s + text, u"ARTIST=名前"_s, u"COMMENT=note "_s + text});
        const auto tags = read(fresh);
        EXPECT_EQ(tags->titleText(), OptionalText(text));
        EXPECT_EQ(tags->artistText(), OptionalText(u"名前"_s));
        EXPECT_EQ(tags->commentText(), OptionalText(u"note "_s + text));
    }
}

TEST_P(TagsProof, TagEditorReadsWhatIsWrittenHereAndItsTextsAreReadHere)
{
    TagsObject tags;
    tags.setTitleText(u"Привет, 世界"_s);
    tags.setArtistText(u"Beyoncé"_s);
    write(tags);
    EXPECT_EQ(edited(u"get title 2"_s), u"Привет, 世界"_s);
    EXPECT_EQ(edited(u"get artist 2"_s), u"Beyoncé"_s);
    edited(u"set title \"Ελλάδα = שלום\" 2"_s);
    edited(u"set genre \"Ямщик\" 2"_s);
    EXPECT_EQ(read()->titleText(), OptionalText(u"Ελλάδα = שלום"_s));
    EXPECT_EQ(read()->genreText(), OptionalText(u"Ямщик"_s));
    EXPECT_EQ(read()->artistText(), OptionalText(u"Beyoncé"_s));
}

TEST_P(TagsProof, FullDiskLeavesTheFileAsItIs)
{
    TagsObject tags;
    tags.setCommentText(QString(300000, u'x')); // more than any format's padding
    const QByteArray before = contentOf(path());
    {
        const FileSizeLimit limit(rlim_t(before.size() + 200000));
        write(tags);
    }
    EXPECT_EQ(contentOf(path()), before);
    write(tags);
    EXPECT_EQ(read()->commentText()->size(), 300000);
}

TEST(TagsProofFlac, FullDiskHasNoRoomForAPicture)
{
    TagFiles files;
    const QByteArray before = contentOf(files.flac());
    TagsObject tags;
    QImage noise(400, 400, QImage::Format_RGB32);
    std::generate_n(reinterpret_cast<quint32*>(noise.bits()), noise.sizeInBytes() / 4, std::mt19937());
    tags.setAlbumArt(Image::fromPixels(noise));
    const FileSizeLimit limit(rlim_t(before.size() + 200000));
    helper.writeTagsForFLACFileTagObjectWriteEmptyTags(files.flac(), tags, false);
    EXPECT_EQ(contentOf(files.flac()), before);
}

TEST(RoomToSave, EndsWithTheDisk)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(refusalForWantOfRoom(0, 1, folder.path()));
    EXPECT_TRUE(refusalForWantOfRoom(0, qint64(1) << 60, folder.path()));
    EXPECT_FALSE(refusalForWantOfRoom(qint64(1) << 60, qint64(1) << 60, folder.path())) << "nothing grows";
}

TEST(TagsProofFlac, CommentsOfTheToolAreReadHere)
{
    TagFiles files;
    printed(u"metaflac"_s, {u"--set-tag=TITLE=Привет = мир"_s, u"--set-tag=PERFORMER=一"_s, u"--set-tag=PERFORMER=二"_s,
                            files.flac()});
    printed(u"metaflac"_s, {u"--import-picture-from="_s + files.picture("jpeg", 51), files.flac()});
    const auto tags = helper.tagsForFlacFile(files.flac());
    EXPECT_EQ(tags->titleText(), OptionalText(u"Привет = мир"_s));
    EXPECT_EQ(tags->customTagsDictionary(), (CustomTags{{u"PERFORMER"_s, u"一 二"_s}}));
    ASSERT_TRUE(tags->albumArt());
    EXPECT_EQ(tags->albumArt()->lastBitmap()->pixelsWide(), 51);
    EXPECT_EQ(tags->albumArt()->lastBitmap()->bitsPerPixel(), 24);
}

TEST(TagsProofMP3, FramesAreReadByTheFrameEditor)
{
    TagFiles files;
    TagsObject tags;
    tags.setTitleText(u"Заголовок"_s);
    tags.setArtistText(u"Àrtîst"_s);
    tags.setComposerText(u"Dvořák"_s.replace(u'ř', u'r'));
    tags.setTrackText(u"4"_s);
    tags.setTrackTotalText(u"12"_s);
    tags.setDiscText(u"1"_s);
    tags.setDiscTotalText(u"2"_s);
    tags.setDateText(u"1999-05-01"_s);
    tags.setAlbumArt(Image::fromData(contentOf(files.picture("png"))));
    helper.writeTagsForMP3FileTagObjectWriteEmptyTags(files.mp3(), tags, false);
    const QString shown = printed(u"eyeD3"_s, {u"--no-color"_s, u"-2"_s, files.mp3()});
    for (const QString& text : {u"title: Заголовок"_s, u"artist: Àrtîst"_s, u"album artist: Àrtîst"_s,
                                u"composer: Dvorák"_s, u"track: 4/12"_s, u"disc: 1/2"_s, u"1999"_s, u"image/png"_s})
        EXPECT_TRUE(shown.contains(text)) << text.toStdString() << " is not in\n" << shown.toStdString();
}

TEST(TagsProofMP3, FramesOfTheFrameEditorAreReadHere)
{
    TagFiles files;
    printed(u"eyeD3"_s, {u"--to-v2.4"_s, u"--title"_s, u"日本"_s, u"--artist"_s, u"Ünïcode"_s, u"--composer"_s,
                         u"Чайковский"_s, u"-n"_s, u"3"_s, u"-N"_s, u"12"_s, u"-d"_s, u"1"_s, u"-D"_s, u"2"_s,
                         u"--add-image"_s, files.picture("jpeg", 52) + u":FRONT_COVER"_s, files.mp3()});
    const auto tags = helper.tagsForMP3File(files.mp3());
    EXPECT_EQ(tags->titleText(), OptionalText(u"日本"_s));
    EXPECT_EQ(tags->artistText(), OptionalText(u"Ünïcode"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(u"Чайковский"_s));
    EXPECT_EQ(intValue(*tags->trackText()), 3);
    EXPECT_EQ(tags->trackTotalText(), OptionalText(u"12"_s));
    EXPECT_EQ(intValue(*tags->discText()), 1);
    EXPECT_EQ(intValue(*tags->discTotalText()), 2);
    ASSERT_TRUE(tags->albumArt());
    EXPECT_EQ(tags->albumArt()->lastBitmap()->pixelsWide(), 52);
}

TEST(TagsProofMP3, OlderFramesOfTheEncoderAreReadHere)
{
    TagFiles files;
    const QString path = files.pathOf(u"older.mp3"_s);
    printed(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, files.wav(), u"-metadata"_s, u"title=Привет"_s, u"-metadata"_s,
                          u"track=3/12"_s, u"-metadata"_s, u"composer=Glück"_s, u"-id3v2_version"_s, u"3"_s, path});
    const auto tags = helper.tagsForMP3File(path);
    EXPECT_EQ(tags->titleText(), OptionalText(u"Привет"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"3"_s));
    EXPECT_EQ(tags->trackTotalText(), OptionalText(u"12"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(u"Glück"_s));
}

TEST(TagsProofSound, EveryToolStillTakesTheFile)
{
    TagFiles files;
    TagsObject tags;
    tags.setTitleText(QString(50000, u'щ'));
    tags.setAlbumArt(Image::fromData(contentOf(files.picture("png"))));
    for (const TagFormat& format : tagFormats()) {
        const QString path = (files.*format.sample)();
        const auto sound = [&] {
            return path.endsWith(u".ape"_s) ? QString()
                                            : printed(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path, u"-map"_s,
                                                                    u"0:a"_s, u"-f"_s, u"md5"_s, u"-"_s});
        };
        const QString before = sound();
        format.write(path, tags, false);
        EXPECT_EQ(sound(), before) << format.name;
    }
}
