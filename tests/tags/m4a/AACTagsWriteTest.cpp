#include "tags/AACTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "tags/m4a/M4AFiles.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include <QRegularExpression>

#include <libavcodec/version.h>

#include <sys/inotify.h>
#include <unistd.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AACTagsWrite : public testing::Test
{
protected:
    void write(const QString& path, const TagsObject& tags, bool writeEmptyTags = false, bool encoding = false)
    {
        AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, writeEmptyTags, encoding);
    }

    QString fileWithItems(const QByteArray& items)
    {
        return files_.stored(u"items.m4a"_s, withItems(contentOf(files_.lossless()), items));
    }

    std::shared_ptr<TagsObject> tagsOf(const QString& path) { return AACTagsHelper().tagsForFile(path); }

    QByteArray itemsOf(const QString& path)
    {
        return payloadOf(contentOf(path), {"moov", "udta", "meta", "ilst"}).value_or("(none)");
    }

    void expectNumbers(const QString& path, const char* name, int number, int total)
    {
        const QVariantList values = seenItem(path, name);
        ASSERT_EQ(values.size(), 1) << name;
        EXPECT_EQ(values.first().toList(), QVariantList({number, total})) << name;
    }

    std::shared_ptr<const Image> picture() { return Image::fromData(contentOf(files_.picture())); }

    M4AFiles files_;
};

TagsObject fullRecord()
{
    TagsObject tags;
    tags.setTitleText(u"Título"_s);
    tags.setArtistText(u"Anna"_s);
    tags.setDateText(u"1999-05-01"_s);
    tags.setAlbumText(u"Album"_s);
    tags.setCommentText(u"A comment"_s);
    tags.setGenreText(u"Rock"_s);
    tags.setComposerText(u"Bert"_s);
    tags.setDiscText(u"1"_s);
    tags.setDiscTotalText(u"2"_s);
    tags.setTrackText(u"3"_s);
    tags.setTrackTotalText(u"12"_s);
    tags.setEncoderSettings(u"CBR 256kbps"_s);
    return tags;
}

TagsObject recordWithTrack(const QString& track)
{
    TagsObject tags;
    tags.setTrackText(track);
    return tags;
}

} // namespace

TEST_F(AACTagsWrite, EveryFieldReachesOtherPrograms)
{
    const QString path = files_.copyOf(files_.lossless());
    TagsObject tags = fullRecord();
    tags.setAlbumArt(picture());
    write(path, tags, false, true);
    EXPECT_EQ(seenText(path, "\251nam"), u"Título"_s);
    EXPECT_EQ(seenText(path, "\251ART"), u"Anna"_s);
    EXPECT_EQ(seenText(path, "aART"), u"Anna"_s);
    EXPECT_EQ(seenText(path, "\251day"), u"1999-05-01"_s);
    EXPECT_EQ(seenText(path, "\251alb"), u"Album"_s);
    EXPECT_EQ(seenText(path, "\251cmt"), u"A comment"_s);
    EXPECT_EQ(seenText(path, "\251gen"), u"Rock"_s);
    EXPECT_EQ(seenText(path, "\251wrt"), u"Bert"_s);
    expectNumbers(path, "trkn", 3, 12);
    expectNumbers(path, "disk", 1, 2);
    EXPECT_EQ(seenItem(path, "covr").first().toList().first(), 14);
    const QString report = printed(u"AtomicParsley"_s, {path, u"-t"_s});
    EXPECT_TRUE(report.contains(u"contains: Título"_s)) << report.toStdString();
    EXPECT_TRUE(report.contains(u"contains: 3 of 12"_s)) << report.toStdString();
    const QString probed = printed(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_format"_s, path});
    EXPECT_TRUE(probed.contains(u"TAG:composer=Bert\n"_s)) << probed.toStdString();
    EXPECT_TRUE(probed.contains(u"TAG:album_artist=Anna\n"_s)) << probed.toStdString();
}

TEST_F(AACTagsWrite, AudioStaysAndTheFileIsOptimised)
{
    for (const QString& source :
         {files_.lossless(), files_.aac(), files_.indexFirst(), files_.fromAtomicParsley(), files_.fromMutagen(),
          files_.wide(), files_.fragmented(u"frag_keyframe+empty_moov"_s)}) {
        const QString path = files_.copyOf(source);
        TagsObject tags = fullRecord();
        tags.setAlbumArt(picture());
        write(path, tags);
        EXPECT_EQ(packets(path), packets(source)) << source.toStdString();
        EXPECT_TRUE(decodesCleanly(path));
        const QByteArrayList names = atomNames(contentOf(path));
        EXPECT_LT(names.indexOf("moov"), names.indexOf("mdat"));
        EXPECT_FALSE(names.contains("free"));
        EXPECT_EQ(tagsOf(path)->titleText(), u"Título"_s);
    }
}

TEST_F(AACTagsWrite, AFileIsOptimisedAlsoForAnEmptyRecord)
{
    const QString path = files_.copyOf(files_.lossless());
    const QByteArray items = itemsOf(path);
    write(path, TagsObject());
    EXPECT_EQ(atomNames(contentOf(path)), QByteArrayList({"ftyp", "moov", "mdat"}));
    EXPECT_EQ(itemsOf(path), items);
}

namespace {

/// The names that come up in a folder while the work is done.
QStringList namesMade(const QString& folder, const std::function<void()>& work)
{
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    EXPECT_GE(inotify_add_watch(watch, QFile::encodeName(folder).constData(), IN_CREATE), 0);
    work();
    alignas(inotify_event) char events[4096];
    const ssize_t size = ::read(watch, events, sizeof events);
    ::close(watch);
    QStringList names;
    for (ssize_t at = 0; at < size;) {
        const auto* const event = reinterpret_cast<const inotify_event*>(events + at);
        names += QFile::decodeName(event->name);
        at += ssize_t(sizeof(inotify_event) + event->len);
    }
    return names;
}

} // namespace

TEST_F(AACTagsWrite, TheNewFileIsMadeBesideTheOldOneWithItsExtension)
{
    const QString file = files_.lossless();
    const QStringList made = namesMade(QFileInfo(file).path(), [&] { write(file, fullRecord()); });
    ASSERT_EQ(made.size(), 1) << made.join(u' ').toStdString();
    static const QRegularExpression form(u"^Zolt-[0-9a-f]{8}-[A-Za-z0-9]{8}\\.m4a$"_s);
    EXPECT_TRUE(form.match(made.first()).hasMatch()) << made.first().toStdString();
}

TEST_F(AACTagsWrite, DifficultTextsComeBack)
{
    const QString path = files_.copyOf(files_.lossless());
    for (const QString& text : difficultTexts()) {
        TagsObject tags;
        tags.setTitleText(text);
        write(path, tags);
        EXPECT_EQ(tagsOf(path)->titleText(), text);
        EXPECT_EQ(seenText(path, "\251nam"), text);
    }
}

TEST_F(AACTagsWrite, ATrackWithoutTotalWritesZeroForIt)
{
    const QString path = fileWithItems({});
    write(path, recordWithTrack(u"7"_s));
    expectNumbers(path, "trkn", 7, 0);
    EXPECT_TRUE(seenItem(path, "disk").isEmpty());
}

TEST_F(AACTagsWrite, ATotalWithoutNumberIsNotWritten)
{
    const QString path = fileWithItems({});
    TagsObject tags;
    tags.setTrackTotalText(u"12"_s);
    write(path, tags);
    EXPECT_TRUE(seenItem(path, "trkn").isEmpty());
}

TEST_F(AACTagsWrite, NumbersAreCutToSixteenBits)
{
    const QString path = fileWithItems({});
    write(path, recordWithTrack(u"70000"_s));
    expectNumbers(path, "trkn", 4464, 0);
    EXPECT_EQ(tagsOf(path)->trackText(), u"4464"_s);
    write(path, recordWithTrack(u"40000"_s));
    EXPECT_EQ(tagsOf(path)->trackText(), u"40000"_s);
    write(path, recordWithTrack(u"-1"_s));
    EXPECT_EQ(tagsOf(path)->trackText(), u"65535"_s);
    write(path, recordWithTrack(u"3/12"_s));
    expectNumbers(path, "trkn", 3, 0);
}

TEST_F(AACTagsWrite, EmptyNumbersAreWrittenAsZeroWhenAsked)
{
    const QString path = fileWithItems({});
    write(path, recordWithTrack(QString()), true);
    expectNumbers(path, "trkn", 0, 0);
    expectNumbers(path, "disk", 0, 0);
}

TEST_F(AACTagsWrite, EmptyAndAbsentFieldsStayUnlessAsked)
{
    const QString path = files_.copyOf(files_.lossless());
    write(path, fullRecord());
    const QByteArray items = itemsOf(path);
    TagsObject empty;
    AACTagsHelper().setBlankTags(empty);
    write(path, empty);
    write(path, TagsObject());
    EXPECT_EQ(itemsOf(path), items);
}

TEST_F(AACTagsWrite, AllFieldsAreEmptiedWhenAsked)
{
    const QString path = files_.copyOf(files_.lossless());
    write(path, fullRecord());
    write(path, TagsObject(), true);
    for (const char* name : {"\251nam", "\251ART", "aART", "\251day", "\251alb", "\251cmt", "\251gen", "\251wrt"})
        EXPECT_EQ(seenText(path, name), QString()) << name;
    expectNumbers(path, "trkn", 0, 0);
    const auto tags = tagsOf(path);
    EXPECT_EQ(tags->titleText(), QString());
    EXPECT_EQ(tags->discText(), u"0"_s);
}

TEST_F(AACTagsWrite, ARecordWithoutArtKeepsTheCover)
{
    for (const bool writeEmptyTags : {false, true}) {
        const QString path = files_.copyOf(files_.fromAtomicParsley());
        const QVariantList cover = seenItem(path, "covr");
        ASSERT_EQ(cover.size(), 1);
        write(path, TagsObject(), writeEmptyTags);
        EXPECT_EQ(seenItem(path, "covr"), cover);
    }
}

TEST_F(AACTagsWrite, ArtReplacesTheFirstPictureAlone)
{
    const QString path = fileWithItems(atom("covr", value(13, "first") + atom("name", "cover") + value(14, "second")));
    TagsObject tags;
    tags.setAlbumArt(picture());
    write(path, tags);
    const QVariantList pictures = seenItem(path, "covr");
    ASSERT_EQ(pictures.size(), 2);
    EXPECT_EQ(pictures[0].toList().first(), 14);
    EXPECT_EQ(pictures[1].toList(), QVariantList({14, 6}));
    EXPECT_TRUE(itemsOf(path).contains(atom("name", "cover")));
    write(path, tags);
    EXPECT_EQ(seenItem(path, "covr"), pictures) << "the same picture again adds nothing";
}

TEST_F(AACTagsWrite, ArtIsWrittenAsPNGWhateverItWas)
{
    const QString path = fileWithItems({});
    TagFiles others;
    TagsObject tags;
    tags.setAlbumArt(Image::fromData(contentOf(others.picture("jpeg", 90))));
    write(path, tags);
    EXPECT_TRUE(itemsOf(path).contains("\211PNG\r\n"));
    EXPECT_EQ(tagsOf(path)->albumArt()->lastBitmap()->pixelsWide(), 90);
}

TEST_F(AACTagsWrite, TheToolStringIsWrittenAfterEncodingAlone)
{
    const QString path = fileWithItems(item("\251too", 1, "Another tool"));
    write(path, fullRecord(), true, false);
    EXPECT_EQ(seenText(path, "\251too"), u"Another tool"_s);
    write(path, fullRecord(), false, true);
    EXPECT_EQ(seenText(path, "\251too"), u"Zolt 1.0, "_s + QStringLiteral(LIBAVCODEC_IDENT) + u", CBR 256kbps"_s);
    write(path, TagsObject(), false, true);
    EXPECT_EQ(seenText(path, "\251too"), u"Zolt 1.0, "_s + QStringLiteral(LIBAVCODEC_IDENT) + u", "_s);
}

TEST_F(AACTagsWrite, AGenreTextTakesThePlaceOfANumber)
{
    const QString path = fileWithItems(item("gnre", 0, bigEndian(18, 2)) + item("\251gen", 1, "Old"));
    TagsObject tags;
    tags.setGenreText(u"Own genre"_s);
    write(path, tags);
    EXPECT_EQ(itemsOf(path), item("\251gen", 1, "Own genre"));
}

TEST_F(AACTagsWrite, OtherItemsStayByteForByte)
{
    const QByteArray own = atom("----", atom("mean", "????com.example") + atom("name", "????Key") + value(1, "text"));
    const QByteArray others = own + item("cpil", 21, "\1") + item("\251lyr", 2, "\1A\1B") + item("zzzz", 77, "\0\1\2") +
                              atom("\251grp", "not even an atom");
    const QString path = fileWithItems(others + item("\251nam", 1, "Old"));
    TagsObject tags;
    tags.setTitleText(u"New"_s);
    write(path, tags);
    EXPECT_EQ(itemsOf(path), others + item("\251nam", 1, "New"));
}

TEST_F(AACTagsWrite, SeveralItemsOfOneKindBecomeOne)
{
    const QString path = fileWithItems(item("\251nam", 1, "One") + item("cpil", 21, "\1") + item("\251nam", 1, "Two"));
    TagsObject tags;
    tags.setTitleText(u"New"_s);
    write(path, tags);
    EXPECT_EQ(itemsOf(path), item("\251nam", 1, "New") + item("cpil", 21, "\1"));
}

TEST_F(AACTagsWrite, AFileWithoutUserDataGetsThem)
{
    const QByteArray bare = withIndex(contentOf(files_.lossless()), [](Mp4Box& index) {
        std::erase_if(index.children, [](const Mp4Box& part) { return part.type == atomType("udta"); });
    });
    const QString path = files_.stored(u"bare.m4a"_s, bare);
    write(path, fullRecord());
    EXPECT_EQ(seenText(path, "\251nam"), u"Título"_s);
    EXPECT_EQ(packets(path), packets(files_.lossless()));
}

TEST_F(AACTagsWrite, MetadataOfAnotherKindStayBeside)
{
    const QString source = files_.pathOf(u"keys.m4a"_s);
    printed(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, files_.lossless(), u"-c"_s, u"copy"_s, u"-movflags"_s,
                          u"use_metadata_tags"_s, u"-metadata"_s, u"own=kept"_s, source});
    const QString path = files_.copyOf(source);
    write(path, fullRecord());
    EXPECT_EQ(tagsOf(path)->titleText(), u"Título"_s);
    const QString probed = printed(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_format"_s, path});
    EXPECT_TRUE(probed.contains(u"TAG:own=kept\n"_s)) << probed.toStdString();
}

TEST_F(AACTagsWrite, SeveralThreadsTagFilesSideBySide)
{
    QStringList paths;
    for (int number = 0; number < 4; ++number)
        paths += files_.copyOf(files_.fromAtomicParsley(), u"copy%1.m4a"_s.arg(number));
    std::vector<std::thread> threads;
    for (const QString& path : paths)
        threads.emplace_back([this, path] {
            for (int round = 0; round < 10; ++round)
                write(path, fullRecord(), round % 2, true);
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const QString& path : paths) {
        EXPECT_EQ(tagsOf(path)->titleText(), u"Título"_s);
        EXPECT_EQ(contentOf(path), contentOf(paths.first()));
    }
}
