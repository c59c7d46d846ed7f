// A run is taken back.
#include "tags/TagUndo.h"
#include "TagsTabFixture.h"
#include "platform/errors/Exceptions.h"
#include "support/FileSizeLimit.h"
#include "tags/SoundRanges.h"

#include <QImage>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class TagUndoTest : public TagsTabTest
{
protected:
    TagUndoTest() { tab.setUndoFolder(undoFolder()); }
    QString undoFolder() const { return pathOf(u"cache/undo"_s); }
    QList<QByteArray> contents() const
    {
        QList<QByteArray> all;
        for (const QString& path : tab.fileNames().copy())
            all += contentOf(path);
        return all;
    }
    void selectAll()
    {
        QList<qsizetype> rows;
        for (qsizetype row = 0; row < tab.fileNames().count(); ++row)
            rows += row;
        select(rows);
    }
    std::shared_ptr<const Image> cover(int width = 60)
    {
        return Image::fromData(contentOf(samples.picture("png", width)));
    }
    /// The samples are shorter than what is kept around the sound: this is more of it, which no library looks at.
    static QByteArray more()
    {
        QByteArray bytes;
        for (int i = 0; i < 100000; ++i)
            bytes += char('a' + qint64(i) * i / 7 % 23);
        return bytes;
    }
    void listLong(const QStringList& names, const QString& sample)
    {
        const bool hasAtoms = sample.endsWith(u"m4a");
        QStringList paths;
        for (const QString& name : names)
            paths += file(name, contentOf(sample) + (hasAtoms ? QByteArray() : more()));
        tab.addFiles(paths);
    }
    QString result() const { return tab.resultLabel->stringValue(); }
    /// Other bytes of the same length, until the disk tells another time than before.
    void changeElsewhere(const QString& path)
    {
        struct stat before = {}, now = {};
        ASSERT_EQ(::stat(qPrintable(path), &before), 0);
        do {
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::ReadWrite));
            file.seek(file.size() - 1);
            file.write("x");
            file.close();
            ASSERT_EQ(::stat(qPrintable(path), &now), 0);
        } while (now.st_mtim.tv_nsec == before.st_mtim.tv_nsec && now.st_mtim.tv_sec == before.st_mtim.tv_sec);
    }
};

struct Sample
{
    const char* format;
    QString (TagFiles::*make)();
};

void PrintTo(const Sample& sample, std::ostream* out)
{
    *out << sample.format;
}

/// A file of each format, with and without tags of its own.
class TagUndoOfFormat : public TagUndoTest, public testing::WithParamInterface<Sample>
{
};

} // namespace

TEST_P(TagUndoOfFormat, EveryByteComesBack)
{
    const QString sample = (samples.*GetParam().make)();
    const QString extension = path::extension(sample);
    listLong({u"bare."_s + extension, u"tagged."_s + extension}, sample);
    const auto own = std::make_shared<TagsObject>();
    own->setTitleText(QString(5000, u'ж'));
    own->setAlbumArt(cover(300));
    tagRouteFor(tab.fileNames().at(1))->write(tab.fileNames().at(1), *own, false);
    const QList<QByteArray> before = contents();
    selectAll();
    type(u"Anna"_s);
    tab.commentText->enterText(QString(20000, u'x'));
    tab.albumArtImageView->replaceImage(cover());
    write();
    EXPECT_NE(contents().at(0), before.at(0));
    EXPECT_NE(contents().at(1), before.at(1));
    ASSERT_TRUE(tab.canUndoWrite());
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(result(), u"2 of 2 files put back."_s);
    EXPECT_FALSE(tab.canUndoWrite());
}

TEST_P(TagUndoOfFormat, EmptiedFieldsComeBack)
{
    const QString sample = (samples.*GetParam().make)();
    listLong({u"a."_s + path::extension(sample)}, sample);
    const auto own = std::make_shared<TagsObject>();
    own->setTitleText(u"title"_s);
    own->setAlbumArt(cover());
    tagRouteFor(tab.fileNames().at(0))->write(tab.fileNames().at(0), *own, false);
    const QList<QByteArray> before = contents();
    select({0});
    tab.titleText->enterText(QString());
    tab.albumArtImageView->replaceImage(nullptr);
    tab.setWriteEmptyTags(true);
    write();
    EXPECT_NE(contents(), before);
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(tab.titleText->stringValue(), u"title"_s) << "what the file holds again is shown";
}

INSTANTIATE_TEST_SUITE_P(Formats, TagUndoOfFormat,
                         testing::Values(Sample{"FLAC", &TagFiles::flac}, Sample{"MP3", &TagFiles::mp3},
                                         Sample{"Wavpack", &TagFiles::wavpack}, Sample{"APE", &TagFiles::ape},
                                         Sample{"M4A", &TagFiles::m4a}));

/// Under both names, whether the tags found room where they stood or the sound had to move.
TEST_P(TagUndoOfFormat, AFileOfTwoNamesStaysOneAndKeepsTimeAccessAndAttributes)
{
    const QString sample = (samples.*GetParam().make)();
    const bool isReplacedByItsWriter = sample.endsWith(u"m4a");
    listLong({u"a."_s + path::extension(sample)}, sample);
    const QByteArray path = tab.fileNames().at(0).toLocal8Bit(), other = pathOf(u"other"_s).toLocal8Bit();
    const QByteArray before = contents().at(0);
    ASSERT_EQ(::link(path.constData(), other.constData()), 0);
    ASSERT_EQ(::chmod(path.constData(), 0640), 0);
    const bool takesAttributes = ::setxattr(path.constData(), "user.source", "DAT", 3, 0) == 0;
    const timespec times[] = {{1000, 5}, {2000, 7}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    for (const qsizetype letters : {4, 300000}) {
        select({});
        select({0});
        tab.commentText->enterText(QString(letters, u'x'));
        write();
        ASSERT_NE(contents().at(0), before);
        tab.undoWrite(nullptr);
        EXPECT_EQ(contents().at(0), before);
        struct stat facts = {}, factsOfOther = {};
        ASSERT_EQ(::stat(path.constData(), &facts), 0);
        ASSERT_EQ(::stat(other.constData(), &factsOfOther), 0);
        EXPECT_EQ(facts.st_ino == factsOfOther.st_ino, !isReplacedByItsWriter) << letters;
        EXPECT_EQ(facts.st_mtim.tv_sec, 2000);
        EXPECT_EQ(facts.st_mtim.tv_nsec, 7);
        EXPECT_EQ(facts.st_mode & 0777, 0640U);
        char value[4] = {};
        EXPECT_EQ(::getxattr(path.constData(), "user.source", value, sizeof value), takesAttributes ? 3 : -1);
        EXPECT_TRUE(contentOf(pathOf(u"other"_s)) == before);
    }
    EXPECT_EQ(QDir(folder()).entryList({u"*.tags"_s}, QDir::Files).size(), 0) << "nothing is left beside it";
}

TEST_F(TagUndoTest, AFileWithoutRoomToGrowBackStaysAsItWasWritten)
{
    list({u"a.ape"_s}, samples.ape());
    TagsObject own;
    own.setCommentText(QString(300000, u'x'));
    tagRouteFor(tab.fileNames().at(0))->write(tab.fileNames().at(0), own, false);
    const QByteArray before = contents().at(0);
    select({0});
    tab.commentText->enterText(u"y"_s);
    write();
    const QByteArray written = contents().at(0);
    ASSERT_LT(written.size(), before.size());
    {
        const FileSizeLimit limit(written.size() + 1000);
        tab.undoWrite(nullptr);
    }
    EXPECT_TRUE(contents().at(0) == written);
    EXPECT_THAT(result().toStdString(), testing::StartsWith("0 of 1 file put back. a.ape: "));
    tab.undoWrite(nullptr);
    EXPECT_TRUE(contents().at(0) == before);
}

TEST_F(TagUndoTest, OldTagsAtTheEndAndBytesAheadOfTheTagComeBack)
{
    const QByteArray oldest = "TAG" + QByteArray(125, '\1');
    const QByteArray sound = contentOf(samples.mp3()) + more();
    file(u"a.mp3"_s, sound + oldest);
    file(u"b.mp3"_s, QByteArray(500, '\0') + sound);
    tab.addFiles({pathOf(u"a.mp3"_s), pathOf(u"b.mp3"_s)});
    const QList<QByteArray> before = contents();
    selectAll();
    type(QString(9000, u'A'));
    tab.albumArtImageView->replaceImage(cover(400));
    write();
    EXPECT_NE(contents().at(0).last(oldest.size()), oldest) << "the oldest tag is written too";
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(result(), u"2 of 2 files put back."_s);
}

TEST_F(TagUndoTest, AFileThatWasChangedSinceIsLeftAloneAndNamed)
{
    list({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s}, samples.flac());
    const QList<QByteArray> before = contents();
    selectAll();
    type(u"Anna"_s);
    write();
    changeElsewhere(tab.fileNames().at(1));
    const QByteArray changed = contentOf(tab.fileNames().at(1));
    QFile::remove(tab.fileNames().at(2));
    tab.undoWrite(nullptr);
    EXPECT_EQ(contentOf(tab.fileNames().at(0)), before.at(0));
    EXPECT_EQ(contentOf(tab.fileNames().at(1)), changed);
    EXPECT_FALSE(QFile::exists(tab.fileNames().at(2)));
    EXPECT_EQ(result(), u"1 of 3 files put back. b.flac: It was changed since, and is left as it is. "
                        "c.flac: It was changed since, and is left as it is."_s);
}

TEST_F(TagUndoTest, AFailedRunIsTakenBackAsFarAsItCame)
{
    list({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s}, samples.flac());
    writeContent(tab.fileNames().at(1), "no sound");
    const QList<QByteArray> before = contents();
    selectAll();
    type(u"Anna"_s);
    EXPECT_THROW(write(), AssertionException);
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(result(), u"1 of 1 file put back."_s);
}

TEST_F(TagUndoTest, TheNextRunForgetsTheOneBefore)
{
    list({u"a.flac"_s}, samples.flac());
    select({0});
    type(u"Anna"_s);
    write();
    const QList<QByteArray> once = contents();
    type(u"Bert"_s);
    write();
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), once);
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), once);
}

TEST_F(TagUndoTest, ALinkStaysOneAndAccessIsKept)
{
    const QString real = file(u"real/a.flac"_s, contentOf(samples.flac()));
    QFile::setPermissions(real, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    ASSERT_TRUE(QFile::link(real, pathOf(u"a.flac"_s)));
    tab.addFiles({pathOf(u"a.flac"_s)});
    const QList<QByteArray> before = contents();
    select({0});
    type(QString(9000, u'A'));
    write();
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), before);
    EXPECT_TRUE(QFileInfo(pathOf(u"a.flac"_s)).isSymLink());
    EXPECT_TRUE(QFileInfo(real).permission(QFile::ReadGroup));
    EXPECT_FALSE(QFileInfo(real).permission(QFile::ReadOther));
    EXPECT_EQ(QDir(pathOf(u"real"_s)).entryList(QDir::Files).size(), 1) << "nothing is left beside it";
}

TEST_F(TagUndoTest, AFileThatStandsTwiceComesBackAsItWasAtFirst)
{
    list({u"a.flac"_s}, samples.flac());
    tab.addFiles({tab.fileNames().at(0)});
    const QList<QByteArray> before = contents();
    selectAll();
    type(u"Anna"_s);
    write();
    tab.undoWrite(nullptr);
    EXPECT_EQ(contents(), before);
}

TEST_F(TagUndoTest, WhereNothingCanBeKeptTheFilesAreWrittenAndThatIsSaid)
{
    file(u"cache"_s, "a file where a folder is wanted");
    list({u"a.flac"_s}, samples.flac());
    select({0});
    type(u"Anna"_s);
    write();
    EXPECT_EQ(artistAt(0), u"Anna"_s);
    EXPECT_FALSE(tab.canUndoWrite());
    EXPECT_EQ(result(), u"1 of 1 file written. a.flac cannot be undone."_s);
}

TEST_F(TagUndoTest, TheFolderIsTheUsersAloneAndShowsNoFile)
{
    list({u"a.flac"_s}, samples.flac());
    select({0});
    type(u"Anna"_s);
    write();
    ASSERT_TRUE(tab.canUndoWrite());
    const QFileInfo folder(undoFolder());
    EXPECT_EQ(folder.permissions() & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther),
              QFile::Permissions());
    EXPECT_TRUE(QDir(undoFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(TagUndoTest, EqualCoversAreKeptOnce)
{
    for (const char* format : {"png", "jpeg"}) {
        QImage noise(300, 300, QImage::Format_RGB32);
        for (int i = 0; i < 90000; ++i)
            noise.setPixel(i % 300, i / 300, 0xff000000U | (unsigned(i) * 2654435761U >> 8));
        const QString picture = samples.pathOf(u"noise."_s + QLatin1StringView(format));
        ASSERT_TRUE(noise.save(picture, format, 95));
        const qint64 size = QFileInfo(picture).size();
        ASSERT_GT(size, 50000);
        KeptBytes kept(undoFolder());
        for (int i = 0; i < 20; ++i) {
            const QString tagged = file(u"%1.flac"_s.arg(i), contentOf(samples.flac()));
            setTagsElsewhere(tagged, {u"TITLE=%1"_s.arg(QString(i, u'x'))});
            addArtElsewhere(tagged, picture, u"image/"_s + QLatin1StringView(format));
            const RandomAccessFile opened(tagged, RandomAccessFile::Mode::Read);
            kept.keep(opened, {0, soundRanges(opened).first().start});
        }
        EXPECT_LT(kept.size(), quint64(2 * size + 20 * 20000)) << format;
    }
}

TEST_F(TagUndoTest, AFileWithoutSoundIsNotKept)
{
    TagUndo undo(undoFolder());
    EXPECT_FALSE(undo.keep(file(u"a.m4a"_s, "nothing")));
    EXPECT_FALSE(undo.keep(pathOf(u"nowhere.flac"_s)));
    EXPECT_FALSE(undo.canUndo());
}
