#include "tags/FlacTagHelper.h"

#include "platform/errors/Exceptions.h"
#include "tags/TagFiles.h"
#include "tags/TagLibTagsHelper.h"

#include <QFile>
#include <QStandardPaths>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// A tools directory of its own, with the real tool behind a script that notes each run.
class FlacTagHelperTest : public testing::Test
{
protected:
    FlacTagHelperTest()
    {
        real_ = QStandardPaths::findExecutable(u"metaflac"_s);
        placeTool(u"exec \"%1\" \"$@\""_s.arg(real_));
        qputenv("ZOLT_TOOLS", QFile::encodeName(tools_.path()));
    }
    ~FlacTagHelperTest() override
    {
        qputenv("ZOLT_TOOLS", oldTools_);
        qputenv("LC_ALL", oldLocale_);
    }

    /// Puts a script in the tool's place; what follows the notes is `end`.
    void placeTool(const QString& end)
    {
        const QString path = tools_.filePath(u"metaflac"_s);
        writeContent(path, u"#!/bin/sh\n{ printf '%s|' \"$@\"; echo; } >>\"%1\"\n%2\n"_s.arg(notes(), end).toUtf8());
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// One line for each run: the arguments, each followed by a bar, without the file's path.
    QStringList runs()
    {
        QStringList lines = QString::fromUtf8(contentOf(notes())).split(u'\n', Qt::SkipEmptyParts);
        for (QString& line : lines)
            line.replace(u'|' + flac() + u'|', u" FILE"_s);
        return lines;
    }

    QString notes() const { return tools_.filePath(u"notes"_s); }
    QString flac() { return files.flac(); }
    /// The comments as the tool itself shows them.
    QStringList comments()
    {
        return printed(real_, {u"--export-tags-to=-"_s, flac()}).split(u'\n', Qt::SkipEmptyParts);
    }

    FlacTagHelper helper;
    TagFiles files;

private:
    QTemporaryDir tools_;
    QString real_;
    QByteArray oldTools_ = qgetenv("ZOLT_TOOLS");
    QByteArray oldLocale_ = qgetenv("LC_ALL");
};

TagsObject nineFields()
{
    TagsObject tags;
    tags.setTitleText(u"Название"_s);
    tags.setArtistText(u"名前"_s);
    tags.setDateText(u"1999-05-01"_s);
    tags.setAlbumText(u"שלום"_s);
    tags.setDiscText(u"1"_s);
    tags.setTrackText(u"2"_s);
    tags.setGenreText(u"genre"_s);
    tags.setComposerText(u"composer"_s);
    tags.setCommentText(u"first line\nsecond line"_s);
    return tags;
}

} // namespace

TEST_F(FlacTagHelperTest, ReadsNineFieldsInOrderAndLeavesTheOthersAbsent)
{
    setTagsElsewhere(flac(), {u"TITLE=Название"_s, u"ARTIST=名前"_s, u"DATE=1999"_s, u"ALBUM=album"_s,
                              u"DISCNUMBER=1"_s, u"TRACKNUMBER=2"_s, u"COMMENT=comment"_s, u"GENRE=genre"_s,
                              u"COMPOSER=composer"_s, u"DISCTOTAL=3"_s, u"TRACKTOTAL=4"_s, u"MOOD=calm"_s});
    addArtElsewhere(flac(), files.picture("png"), u"image/png"_s);
    const auto tags = helper.tagsForFile(flac());
    EXPECT_EQ(tags->titleText(), OptionalText(u"Название"_s));
    EXPECT_EQ(tags->artistText(), OptionalText(u"名前"_s));
    EXPECT_EQ(tags->dateText(), OptionalText(u"1999"_s));
    EXPECT_EQ(tags->albumText(), OptionalText(u"album"_s));
    EXPECT_EQ(tags->discText(), OptionalText(u"1"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"2"_s));
    EXPECT_EQ(tags->commentText(), OptionalText(u"comment"_s));
    EXPECT_EQ(tags->genreText(), OptionalText(u"genre"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(u"composer"_s));
    EXPECT_FALSE(tags->discTotalText() || tags->trackTotalText() || tags->encoderSettings());
    EXPECT_FALSE(tags->albumArt());
    EXPECT_TRUE(tags->customTagsDictionary().isEmpty());
    EXPECT_EQ(runs(), QStringList({u"--show-tag=TITLE FILE"_s, u"--show-tag=ARTIST FILE"_s, u"--show-tag=DATE FILE"_s,
                                   u"--show-tag=ALBUM FILE"_s, u"--show-tag=DISCNUMBER FILE"_s,
                                   u"--show-tag=TRACKNUMBER FILE"_s, u"--show-tag=COMMENT FILE"_s,
                                   u"--show-tag=GENRE FILE"_s, u"--show-tag=COMPOSER FILE"_s}));
}

TEST_F(FlacTagHelperTest, MissingTagsAndDescriptionsReadEmpty)
{
    setTagsElsewhere(flac(), {u"DESCRIPTION=only this"_s});
    const auto tags = helper.tagsForFile(flac());
    EXPECT_EQ(tags->commentText(), OptionalText(QString()));
    EXPECT_EQ(tags->titleText(), OptionalText(QString()));
}

TEST_F(FlacTagHelperTest, OnlyWhatFollowsTheLastEqualsSignIsRead)
{
    setTagsElsewhere(flac(), {u"TITLE=x=y"_s, u"artist=Anna"_s, u"ARTIST=Bert"_s, u"GENRE=  spaced  "_s});
    EXPECT_EQ(helper.tagForFileTagKey(flac(), u"TITLE"_s), OptionalText(u"y"_s));
    EXPECT_EQ(helper.tagForFileTagKey(flac(), u"ARTIST"_s), OptionalText(u"Bert"_s));
    EXPECT_EQ(helper.tagForFileTagKey(flac(), u"GENRE"_s), OptionalText(u"  spaced"_s));
}

TEST_F(FlacTagHelperTest, KeysAreFoundWhateverTheirCase)
{
    setTagsElsewhere(flac(), {u"artist=Anna"_s, u"Genre=Jazz"_s});
    EXPECT_EQ(helper.tagForFileTagKey(flac(), u"ARTIST"_s), OptionalText(u"Anna"_s));
    EXPECT_EQ(helper.tagsForFile(flac())->genreText(), OptionalText(u"Jazz"_s));
}

TEST_F(FlacTagHelperTest, TwoReadersOfOneFileGiveDifferentRecords)
{
    setTagsElsewhere(flac(), {u"TITLE=x=y"_s, u"TRACKTOTAL=12"_s, u"ARTIST=Anna"_s, u"ARTIST=Bert"_s});
    const auto byLibrary = TagLibTagsHelper().tagsForFlacFile(flac());
    const auto byTool = helper.tagsForFile(flac());
    EXPECT_EQ(byLibrary->titleText(), OptionalText(u"x=y"_s));
    EXPECT_EQ(byTool->titleText(), OptionalText(u"y"_s));
    EXPECT_EQ(byLibrary->artistText(), OptionalText(u"Anna Bert"_s));
    EXPECT_EQ(byTool->artistText(), OptionalText(u"Bert"_s));
    EXPECT_EQ(byLibrary->trackTotalText(), OptionalText(u"12"_s));
    EXPECT_FALSE(byTool->trackTotalText().has_value());
}

TEST_F(FlacTagHelperTest, WritesNineFieldsInOrderEachAfterItsRemoval)
{
    setTagsElsewhere(flac(), {u"TITLE=old"_s, u"TITLE=older"_s, u"MOOD=kept"_s});
    helper.writeTagsForFileTagObjectWriteEmptyTags(flac(), nineFields(), false);
    EXPECT_EQ(comments(), QStringList({u"MOOD=kept"_s, u"TITLE=Название"_s, u"ARTIST=名前"_s, u"DATE=1999-05-01"_s,
                                       u"ALBUM=שלום"_s, u"DISCNUMBER=1"_s, u"TRACKNUMBER=2"_s, u"GENRE=genre"_s,
                                       u"COMPOSER=composer"_s, u"COMMENT=first line"_s, u"second line"_s}));
    EXPECT_EQ(runs().size(), 19); // the comment's line end makes two lines of one note
    EXPECT_EQ(runs()[0], u"--remove-tag=TITLE FILE"_s);
    EXPECT_EQ(runs()[1], u"--set-tag=TITLE=Название FILE"_s);
    EXPECT_EQ(runs()[16], u"--remove-tag=COMMENT FILE"_s);
}

TEST_F(FlacTagHelperTest, EmptyAndAbsentFieldsRunNoTool)
{
    TagsObject tags;
    tags.setTitleText(QString());
    tags.setGenreText(u"only this"_s);
    helper.writeTagsForFileTagObjectWriteEmptyTags(flac(), tags, false);
    EXPECT_EQ(runs(), QStringList({u"--remove-tag=GENRE FILE"_s, u"--set-tag=GENRE=only this FILE"_s}));
}

TEST_F(FlacTagHelperTest, WritingEmptyTagsLeavesNineEmptyOnesAndTheOtherKeys)
{
    setTagsElsewhere(flac(), {u"TITLE=old"_s, u"MOOD=kept"_s});
    TagsObject tags;
    tags.setArtistText(QString());
    helper.writeTagsForFileTagObjectWriteEmptyTags(flac(), tags, true);
    EXPECT_EQ(comments(),
              QStringList({u"MOOD=kept"_s, u"TITLE="_s, u"ARTIST="_s, u"DATE="_s, u"ALBUM="_s, u"DISCNUMBER="_s,
                           u"TRACKNUMBER="_s, u"GENRE="_s, u"COMPOSER="_s, u"COMMENT="_s}));
}

TEST_F(FlacTagHelperTest, OtherScriptsSurviveALocaleWithoutThemAndOneThatIsNotInstalled)
{
    for (const char* locale : {"C", "xx_XX.UTF-8"}) {
        qputenv("LC_ALL", locale);
        const QString text = u"Привет 世界 "_s + QLatin1StringView(locale);
        helper.writeTagForFileTagKeyTagValueWriteEmptyTags(flac(), u"TITLE"_s, text, false);
        EXPECT_EQ(comments(), QStringList(u"TITLE="_s + text));
        EXPECT_EQ(helper.tagForFileTagKey(flac(), u"TITLE"_s), OptionalText(text));
    }
}

TEST_F(FlacTagHelperTest, TellsTheFormatOfTheStream)
{
    const auto format = helper.getFormatInfo(flac());
    EXPECT_EQ(format->sampleRate(), 44100);
    EXPECT_EQ(format->channels(), 1);
    EXPECT_EQ(format->bitsPerChannel(), 16);
    EXPECT_EQ(format->totalSamples(), 4410);
    EXPECT_DOUBLE_EQ(format->time(), 0.1);
    EXPECT_EQ(runs(), QStringList({u"--show-sample-rate FILE"_s, u"--show-channels FILE"_s, u"--show-bps FILE"_s,
                                   u"--show-total-samples FILE"_s}));
}

TEST_F(FlacTagHelperTest, LengthBeyond32BitsIsKept)
{
    placeTool(u"echo 68719476735"_s);
    EXPECT_EQ(helper.getFormatInfo(flac())->totalSamples(), 68719476735);
}

TEST_F(FlacTagHelperTest, FailingToolGivesEmptyTextsAndZerosAndWritesNothing)
{
    const QString noFlac = files.wav();
    const QByteArray before = contentOf(noFlac);
    for (const QString& path : {noFlac, files.pathOf(u"missing.flac"_s)}) {
        EXPECT_EQ(helper.tagForFileTagKey(path, u"TITLE"_s), OptionalText(QString()));
        EXPECT_EQ(helper.tagsForFile(path)->composerText(), OptionalText(QString()));
        EXPECT_EQ(helper.getFormatInfo(path)->sampleRate(), 0);
        EXPECT_EQ(helper.getFormatInfo(path)->totalSamples(), 0);
        helper.writeTagsForFileTagObjectWriteEmptyTags(path, nineFields(), true);
    }
    EXPECT_EQ(contentOf(noFlac), before);
    EXPECT_FALSE(QFile::exists(files.pathOf(u"missing.flac"_s)));
}

TEST_F(FlacTagHelperTest, AnswerThatIsNotUtf8IsNoText)
{
    placeTool(u"printf 'TITLE=\\377'"_s);
    EXPECT_FALSE(helper.tagForFileTagKey(flac(), u"TITLE"_s).has_value());
    EXPECT_EQ(helper.getFormatInfo(flac())->channels(), 0);
}

TEST_F(FlacTagHelperTest, FieldsAreCopiedToAiff)
{
    helper.writeTagsForFileTagObjectWriteEmptyTags(flac(), nineFields(), false);
    TagLibTagsHelper().writeTagsForAIFFFileTagObject(files.aiff(), *helper.tagsForFile(flac()));
    const auto frames = rawFrames(files.aiff());
    EXPECT_EQ(frames.size(), 9u);
    EXPECT_EQ(textsOf(frames, u"TIT2"_s), QStringList(u"Название"_s));
    EXPECT_EQ(textsOf(frames, u"TPE1"_s), QStringList(u"名前"_s));
    EXPECT_EQ(textsOf(frames, u"TDRC"_s), QStringList(u"1999"_s));
    EXPECT_EQ(textsOf(frames, u"TCOM"_s), QStringList(u"composer"_s));
}

TEST_F(FlacTagHelperTest, ToolThatIsNotThereIsAnException)
{
    qputenv("ZOLT_TOOLS", "/nonexistent");
    EXPECT_THROW(helper.tagsForFile(flac()), PlatformException);
}
