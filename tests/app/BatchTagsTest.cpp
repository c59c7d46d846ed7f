// zolt-batch tags
#include "BatchTesting.h"
#include "shell/Wording.h"
#include "tags/TagFiles.h"
#include "tags/TaggedShow.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class BatchTags : public BatchTest
{
protected:
    QString copy(const QString& name, const QString& sample)
    {
        QDir().mkpath(QFileInfo(in(name)).path());
        QFile::remove(in(name));
        EXPECT_TRUE(QFile::copy(sample, in(name)));
        return name;
    }
    QString flac(const QString& name) { return copy(name, samples.flac()); }
    QList<QJsonObject> shown(const QStringList& files)
    {
        const auto outcome = run(QStringList{u"tags"_s, u"show"_s, u"--json"_s} + files);
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        QList<QJsonObject> objects;
        for (const QString& line : outcome.output.split(u'\n', Qt::SkipEmptyParts))
            objects += QJsonDocument::fromJson(line.toUtf8()).object();
        return objects;
    }
    QJsonObject shown(const QString& file) { return shown(QStringList{file}).value(0); }
    BatchOutcome set(const QStringList& arguments) { return run(QStringList{u"tags"_s, u"set"_s} + arguments); }
    BatchOutcome name(const QStringList& arguments) { return run(QStringList{u"tags"_s, u"name"_s} + arguments); }
    bool isWrongUsage(const BatchOutcome& outcome, const QString& word)
    {
        return outcome.status == 2 && outcome.errors.contains(word);
    }

    /// The files of the show, of real sound in every format.
    QStringList makeShow()
    {
        copy(u"make/sound.wav"_s, samples.wav());
        EXPECT_EQ(run({u"encode"_s, u"--to"_s, u"APE"_s, u"make/sound.wav"_s}).status, 0);
        const QHash<QString, QString> made{{u"flac"_s, samples.flac()},
                                           {u"mp3"_s, samples.mp3()},
                                           {u"m4a"_s, samples.m4a()},
                                           {u"wv"_s, samples.wavpack()},
                                           {u"ape"_s, in(u"make/sound.ape"_s)}};
        for (const QString& each : showFiles()) {
            copy(u"show/"_s + each, made.value(QFileInfo(each).suffix()));
            digests[each] = soundDigest(in(u"show/"_s + each));
        }
        return showFiles();
    }
    void expectTitles(const QStringList& files)
    {
        const QList<QJsonObject> tags = shown(QStringList{u"show"_s});
        ASSERT_EQ(tags.size(), files.size());
        for (int i = 0; i < files.size(); ++i) {
            EXPECT_EQ(tags[i][u"title"_s].toString(), showTitles()[i]);
            EXPECT_EQ(soundDigest(in(u"show/"_s + files[i])), digests[files[i]]);
        }
        for (int i = 0; i < 5; ++i) {
            const auto titles = titlesElsewhere(in(u"show/"_s + files[i]));
            for (const auto& [program, title] : titles.asKeyValueRange())
                EXPECT_EQ(title, showTitles()[i]) << program.toStdString() << " on " << files[i].toStdString();
        }
    }

    TagFiles samples;
    QHash<QString, QString> digests;
};

} // namespace

TEST_F(BatchTags, AShowIsNamedFromASetlist)
{
    const QStringList files = makeShow();
    write(in(u"show.txt"_s), showSetlist());
    const auto outcome = name({u"--setlist"_s, u"show.txt"_s, u"show"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.rows.size(), 23);
    EXPECT_EQ(outcome.rows.value(0), u"Complete  d1t01.flac"_s);
    expectTitles(files);
}

TEST_F(BatchTags, AShowIsNamedFromACueSheetWithItsAlbumAndArtist)
{
    const QStringList files = makeShow();
    write(in(u"show.cue"_s), showCueSheet());
    const auto outcome = name({u"--cue"_s, u"show.cue"_s, u"show"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    expectTitles(files);
    for (const QJsonObject& tags : shown(QStringList{u"show"_s})) {
        EXPECT_EQ(tags[u"album"_s].toString(), u"Barn Hall"_s);
        EXPECT_EQ(tags[u"artist"_s].toString(), u"The Nobodies"_s);
    }
}

TEST_F(BatchTags, ShowsTextForPeople)
{
    flac(u"a.flac"_s);
    setTagsElsewhere(in(u"a.flac"_s),
                     {u"TITLE=Ночь"_s, u"COMMENT=two\nlines"_s, u"MOOD=calm"_s, u"A_NAME_OF_SOME_LENGTH=1"_s});
    addArtElsewhere(in(u"a.flac"_s), samples.picture("png"), u"image/png"_s);
    const auto outcome = run({u"tags"_s, u"show"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, in(u"a.flac"_s) + u"\n  title         Ночь\n  comment       two\\nlines\n"
                                                "  A_NAME_OF_SOME_LENGTH 1\n"
                                                "  MOOD          calm\n  cover         PNG, 60 × 40, %1\n"_s.arg(
                                                    zolt::sizeInWords(QFileInfo(samples.picture("png")).size())));
}

TEST_F(BatchTags, ShowsJsonForPrograms)
{
    flac(u"a.flac"_s);
    setTagsElsewhere(in(u"a.flac"_s), {u"TITLE=Ночь"_s, u"DISCTOTAL=2"_s, u"MOOD=calm"_s});
    const QJsonObject tags = shown(u"a.flac"_s);
    EXPECT_EQ(tags[u"file"_s].toString(), in(u"a.flac"_s));
    EXPECT_EQ(tags[u"title"_s].toString(), u"Ночь"_s);
    EXPECT_EQ(tags[u"disc-total"_s].toString(), u"2"_s);
    EXPECT_EQ(tags[u"custom"_s].toObject()[u"MOOD"_s].toString(), u"calm"_s);
    EXPECT_FALSE(tags.contains(u"cover"_s));
}

TEST_F(BatchTags, AFileThatIsNotWhatItsNameSaysIsNamed)
{
    write(in(u"a.flac"_s), "no sound");
    const auto outcome = run({u"tags"_s, u"show"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("a.flac: this is no FLAC file"));
}

TEST_F(BatchTags, AFileThatCannotBeReadIsNamedAndTheOthersAreShown)
{
    write(in(u"a.m4a"_s), "no sound");
    flac(u"b.flac"_s);
    const auto outcome = run({u"tags"_s, u"show"_s, u"a.m4a"_s, u"b.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("a.m4a: Unable to open the file for reading."));
    EXPECT_THAT(outcome.output.toStdString(), HasSubstr("b.flac"));
}

TEST_F(BatchTags, OneFileKeepsItsOwnFieldsAndCover)
{
    flac(u"a.flac"_s);
    setTagsElsewhere(in(u"a.flac"_s), {u"TITLE=old"_s, u"ALBUM=Barn"_s, u"MOOD=calm"_s});
    addArtElsewhere(in(u"a.flac"_s), samples.picture("png"), u"image/png"_s);
    const auto outcome =
        set({u"--title"_s, u"new"_s, u"--custom"_s, u"tape=DAT"_s, u"--custom=Mood=x=y"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  a.flac"_s));
    const auto tags = seenTags(in(u"a.flac"_s));
    EXPECT_THAT(textsOf(tags, u"TITLE"_s), ElementsAre(u"new"_s));
    EXPECT_THAT(textsOf(tags, u"ALBUM"_s), ElementsAre(u"Barn"_s));
    EXPECT_THAT(textsOf(tags, u"TAPE"_s), ElementsAre(u"DAT"_s));
    EXPECT_THAT(textsOf(tags, u"MOOD"_s), ElementsAre(u"x=y"_s));
    EXPECT_EQ(countOf(tags, u"PICTURE"_s), 1);
}

TEST_F(BatchTags, SeveralFilesGetTheGivenFieldsAndTheCoverAlone)
{
    for (const QString& each : {u"a.flac"_s, u"b.flac"_s}) {
        flac(each);
        setTagsElsewhere(in(each), {u"TITLE="_s + each, u"GENRE=Jam"_s});
    }
    const auto outcome =
        set({u"--artist"_s, u"Anna"_s, u"--cover"_s, samples.picture("png"), u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    for (const QString& each : {u"a.flac"_s, u"b.flac"_s}) {
        const QJsonObject tags = shown(each);
        EXPECT_EQ(tags[u"title"_s].toString(), each);
        EXPECT_EQ(tags[u"artist"_s].toString(), u"Anna"_s);
        EXPECT_EQ(tags[u"genre"_s].toString(), u"Jam"_s);
        EXPECT_EQ(tags[u"cover"_s].toObject()[u"width"_s].toInt(), 60);
        EXPECT_EQ(tags[u"cover"_s].toObject()[u"kind"_s].toString(), u"PNG"_s);
        EXPECT_GT(tags[u"cover"_s].toObject()[u"bytes"_s].toInt(), 60);
    }
}

TEST_F(BatchTags, EmptyingSeveralFilesHasToBeMeant)
{
    for (const QString& each : {u"a.flac"_s, u"b.flac"_s}) {
        flac(each);
        setTagsElsewhere(in(each), {u"GENRE=Jam"_s, u"ALBUM=Barn"_s});
    }
    const QStringList arguments{u"--clear-empty"_s, u"--album"_s, u"Hall"_s, u"a.flac"_s, u"b.flac"_s};
    const auto refused = set(arguments);
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(
        refused.errors.toStdString(),
        HasSubstr(
            "Artist, date, disc, comment, genre, composer, disc total and track total will be emptied in 2 files."));
    EXPECT_THAT(refused.errors.toStdString(), HasSubstr("--yes"));
    EXPECT_EQ(shown(u"a.flac"_s)[u"genre"_s].toString(), u"Jam"_s);
    EXPECT_EQ(set(QStringList{u"--yes"_s} + arguments).status, 0);
    EXPECT_EQ(shown(u"b.flac"_s)[u"genre"_s].toString(), QString());
    EXPECT_EQ(shown(u"b.flac"_s)[u"album"_s].toString(), u"Hall"_s);
}

TEST_F(BatchTags, OneFileIsEmptiedWithoutAQuestion)
{
    flac(u"a.flac"_s);
    setTagsElsewhere(in(u"a.flac"_s), {u"GENRE=Jam"_s, u"ALBUM=Barn"_s});
    addArtElsewhere(in(u"a.flac"_s), samples.picture("png"), u"image/png"_s);
    EXPECT_EQ(set({u"--clear-empty"_s, u"--genre"_s, QString(), u"a.flac"_s}).status, 0);
    const QJsonObject tags = shown(u"a.flac"_s);
    EXPECT_EQ(tags[u"genre"_s].toString(), QString());
    EXPECT_EQ(tags[u"album"_s].toString(), u"Barn"_s);
    EXPECT_TRUE(tags.contains(u"cover"_s));
}

TEST_F(BatchTags, WrongUsageWritesNothing)
{
    flac(u"a.flac"_s);
    flac(u"b.flac"_s);
    const QByteArray before = contents(in(u"a.flac"_s));
    EXPECT_TRUE(isWrongUsage(set({u"--title"_s, u"x"_s, u"a.flac"_s, u"b.flac"_s}), u"--title is for one file"_s));
    EXPECT_TRUE(isWrongUsage(set({u"--track"_s, u"1"_s, u"a.flac"_s, u"b.flac"_s}), u"--track is for one file"_s));
    QStringList nine;
    for (int i = 0; i < 9; ++i)
        nine += u"--custom=K%1=v"_s.arg(i);
    EXPECT_TRUE(isWrongUsage(set(nine + QStringList{u"a.flac"_s}), u"--custom can be given 8 times"_s));
    EXPECT_TRUE(isWrongUsage(set({u"--custom"_s, u"novalue"_s, u"a.flac"_s}), u"NAME=VALUE"_s));
    EXPECT_TRUE(isWrongUsage(set({u"a.flac"_s}), u"something to be set"_s));
    EXPECT_TRUE(isWrongUsage(set({u"--cover"_s, u"a.flac"_s, u"a.flac"_s}), u"is not a picture"_s));
    EXPECT_TRUE(isWrongUsage(name({u"a.flac"_s}), u"one of --names"_s));
    EXPECT_TRUE(isWrongUsage(name({u"--names"_s, u"nowhere"_s, u"a.flac"_s}), u"nowhere"_s));
    write(in(u"empty.txt"_s), "\n\n");
    EXPECT_TRUE(isWrongUsage(name({u"--names"_s, u"empty.txt"_s, u"a.flac"_s, u"b.flac"_s}), u"no names"_s));
    EXPECT_EQ(contents(in(u"a.flac"_s)), before);
}

TEST_F(BatchTags, OneFileIsNamedByTheFirstName)
{
    flac(u"a.flac"_s);
    write(in(u"names.txt"_s), "Ночь\nSecond\n");
    EXPECT_EQ(name({u"--names"_s, u"names.txt"_s, u"a.flac"_s}).status, 0);
    EXPECT_EQ(shown(u"a.flac"_s)[u"title"_s].toString(), u"Ночь"_s);
    EXPECT_EQ(shown(u"a.flac"_s)[u"track"_s].toString(), u"1"_s);
}

TEST_F(BatchTags, TooFewNamesAreToldAndNothingIsWritten)
{
    flac(u"a.flac"_s);
    flac(u"b.flac"_s);
    write(in(u"names.txt"_s), "One\n");
    const QByteArray before = contents(in(u"a.flac"_s));
    const auto outcome = name({u"--names"_s, u"names.txt"_s, u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors.toStdString(),
                HasSubstr("Number of selected files to tag is greater than number of track names entered"));
    EXPECT_EQ(contents(in(u"a.flac"_s)), before);
}

TEST_F(BatchTags, AFileThatFailsIsNamedAndThoseBehindItAreUntouched)
{
    flac(u"a.flac"_s);
    write(in(u"b.flac"_s), "no sound");
    flac(u"c.flac"_s);
    const QByteArray behind = contents(in(u"c.flac"_s));
    const auto outcome = set({u"--artist"_s, u"Anna"_s, u"a.flac"_s, u"b.flac"_s, u"c.flac"_s, u"gone.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  a.flac"_s, u"Error  b.flac"_s, u"Canceled  c.flac"_s));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("b.flac: Unable to open the output file for tagging."));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("gone.flac"));
    EXPECT_EQ(contents(in(u"c.flac"_s)), behind);
    EXPECT_EQ(contents(in(u"b.flac"_s)), "no sound");
}

TEST_F(BatchTags, RowsAreJsonWhereAsked)
{
    flac(u"a.flac"_s);
    const auto outcome = set({u"--json"_s, u"--artist"_s, u"Anna"_s, u"a.flac"_s});
    const QJsonObject row = QJsonDocument::fromJson(outcome.output.toUtf8()).object();
    EXPECT_EQ(row[u"outcome"_s].toString(), u"complete"_s);
    EXPECT_EQ(row[u"source"_s].toString(), in(u"a.flac"_s));
}
