// Files, covers and texts as nobody wants them: nothing is lost, and what is wrong is told with the file's name.
#include "TagsTabFixture.h"

#include "platform/errors/Exceptions.h"
#include "support/OrdinaryRights.h"
#include "tags/CoverInWords.h"

#include <QImage>

#include <random>
#include <unistd.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class TagsBadInput : public TagsTabTest
{
protected:
    TagsBadInput() { tab.setUndoFolder(pathOf(u"cache"_s)); }

    /// Selects them all.
    void listAll(const QStringList& paths)
    {
        tab.addFiles(paths);
        QList<qsizetype> rows;
        for (qsizetype row = 0; row < tab.fileNames().count(); ++row)
            rows += row;
        select(rows);
    }
    QByteArray content(qsizetype row) { return contentOf(tab.fileNames().at(row)); }
    QString result() const { return tab.resultLabel->stringValue(); }
    static bool isRoot() { return ::geteuid() == 0; }
};

/// Three files of each format under the names a, b and c.
class TagsBadFile : public TagsBadInput, public testing::WithParamInterface<const char*>
{
protected:
    void listThree()
    {
        QStringList paths;
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
            paths += file(name + u'.' + extension(), contentOf(sample()));
        listAll(paths);
        type(u"Anna"_s);
    }
    static QString extension() { return QString::fromLatin1(GetParam()); }
    QString sample()
    {
        const QString format = extension();
        if (format == u"flac") return samples.flac();
        if (format == u"mp3") return samples.mp3();
        if (format == u"m4a") return samples.m4a();
        return format == u"wv" ? samples.wavpack() : samples.ape();
    }
    QString second() const { return tab.fileNames().at(1); }
    /// The second ended the run: the first was written, the third was not, and both can be put back as they were.
    void expectRunEndedAtTheSecond(const QByteArray& before)
    {
        EXPECT_EQ(artistAt(0), u"Anna"_s);
        EXPECT_EQ(content(2), before);
        EXPECT_EQ(result(), u"1 of 3 files written. b.%1: Unable to open the output file for tagging. "
                            "1 behind it not written."_s.arg(extension()));
        tab.undoWrite(nullptr);
        EXPECT_EQ(content(0), before);
    }
};

INSTANTIATE_TEST_SUITE_P(Formats, TagsBadFile, testing::Values("flac", "mp3", "m4a", "wv", "ape"),
                         [](const auto& tested) { return std::string(tested.param); });

/// So much that it does not pack well.
QImage noise(int width)
{
    QImage pixels(width, width, QImage::Format_RGB32);
    std::generate_n(reinterpret_cast<quint32*>(pixels.bits()), pixels.sizeInBytes() / 4, std::mt19937(1));
    return pixels;
}

} // namespace

TEST_P(TagsBadFile, OneWithoutSoundEndsTheRunAndStaysAsItIs)
{
    listThree();
    const QByteArray before = content(0);
    writeContent(second(), "no sound");
    EXPECT_THROW(write(), AssertionException);
    EXPECT_EQ(content(1), "no sound");
    expectRunEndedAtTheSecond(before);
}

TEST_P(TagsBadFile, OneThatVanishedIsNamedAndNotMadeAnew)
{
    listThree();
    const QByteArray before = content(0);
    QFile::remove(second());
    EXPECT_THROW(write(), AssertionException);
    EXPECT_FALSE(QFile::exists(second()));
    expectRunEndedAtTheSecond(before);
}

TEST_P(TagsBadFile, OneThatVanishesInTheMiddleOfARunIsNamedToo)
{
    listThree();
    const QByteArray before = content(0);
    inTheMiddle(5, [&] { QFile::remove(second()); }); // behind three that are kept, and the first that is written
    EXPECT_THROW(write(), AssertionException);
    EXPECT_FALSE(QFile::exists(second()));
    expectRunEndedAtTheSecond(before);
}

TEST_P(TagsBadFile, OneThatVanishedShowsNothingOfAnother)
{
    listThree();
    QFile::remove(second());
    if (extension() == u"m4a") {
        EXPECT_THROW(select({1}), AssertionException);
        EXPECT_EQ(result(), u"b.m4a: Unable to open the file for reading."_s);
    } else {
        select({1});
    }
    EXPECT_EQ(tab.artistText->stringValue(), QString());
}

TEST_P(TagsBadFile, OneThatMayOnlyBeReadIsNamedAndLeft)
{
    const OrdinaryRights rights;
    if (!rights.hold()) GTEST_SKIP() << "this root may not give its rights away";
    listThree();
    const QByteArray before = content(0);
    QFile::setPermissions(second(), QFile::ReadOwner);
    if (extension() == u"m4a") {
        EXPECT_THROW(write(), AssertionException);
        EXPECT_EQ(content(1), before);
        return expectRunEndedAtTheSecond(before);
    }
    write();
    EXPECT_EQ(content(1), before);
    EXPECT_EQ(artistAt(2), u"Anna"_s);
    EXPECT_EQ(result(), u"2 of 3 files written. b.%1: The tags could not be saved."_s.arg(extension()));
}

TEST_P(TagsBadFile, OneThatMayOnlyBeReadIsWrittenByRootAndStaysSo)
{
    if (!isRoot()) GTEST_SKIP() << "for root alone";
    listThree();
    const QByteArray before = content(1);
    QFile::setPermissions(second(), QFile::ReadOwner);
    write();
    EXPECT_EQ(artistAt(1), u"Anna"_s);
    EXPECT_EQ(result(), u"3 of 3 files written."_s);
    tab.undoWrite(nullptr);
    EXPECT_EQ(content(1), before);
    EXPECT_EQ(QFile::permissions(second()) & (QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
}

TEST_P(TagsBadFile, TextsOfAMegabyteAreWrittenAndTakenBack)
{
    listThree();
    const QByteArray before = content(1);
    select({1});
    const QString text(1'000'000, u'ж'), other(1'000'000, u'x');
    tab.titleText->enterText(text);
    tab.commentText->enterText(other);
    write();
    EXPECT_TRUE(tagsAt(1)->titleText() == text);
    EXPECT_TRUE(tagsAt(1)->commentText() == other);
    select({0});
    select({1});
    EXPECT_TRUE(tab.titleText->stringValue() == text);
    tab.undoWrite(nullptr);
    EXPECT_TRUE(content(1) == before);
}

TEST_P(TagsBadFile, LettersThatNoTagCanHoldAreLeftOutAloneAndTheRestIsWritten)
{
    listThree();
    select({1});
    const QString nothing(1, QChar(u'\0'));
    tab.titleText->enterText(u"One"_s + nothing + u"Two"_s);
    tab.artistText->enterText(nothing + u"Anna"_s);
    tab.albumText->enterText(u"Barn"_s);
    write();
    EXPECT_EQ(tagsAt(1)->titleText(), u"OneTwo"_s);
    EXPECT_EQ(tagsAt(1)->artistText(), u"Anna"_s);
    tab.albumText->enterText(nothing);
    write();
    EXPECT_EQ(tagsAt(1)->albumText(), u"Barn"_s) << "that is an empty field";
    EXPECT_FALSE(content(1).contains("One\0Two"_ba));
}

TEST_F(TagsBadInput, NamesWithSuchLettersReachTheirFilesWhole)
{
    QStringList paths;
    for (const QString& name : {u"a"_s, u"b"_s})
        paths += file(name + u".flac"_s, contentOf(samples.flac()));
    listAll(paths);
    TrackNameInputController& names = *controller.trackNameInputController();
    panels_.answerOpenPanel(QStringList{file(u"show.txt"_s, "1. Intro\0 Jam 3:20\r\n2. Drums\0\r\n"_ba)});
    names.loadTrackNamesFromFile(nullptr);
    names.inputOK(nullptr);
    tab.setAutoName(true);
    write();
    EXPECT_EQ(tagsAt(0)->titleText(), u"Intro Jam "_s);
    EXPECT_EQ(tagsAt(1)->titleText(), u"Drums"_s);
}

TEST_F(TagsBadInput, ACoverOfFortyMegabytesGoesIntoFilesThatCanHoldItAndTheOthersAreNamed)
{
    const auto cover = Image::fromPixels(noise(3700));
    const QByteArray png = cover->data(ImageFileType::PNG);
    ASSERT_GT(png.size(), 40'000'000);
    listAll({file(u"a.flac"_s, contentOf(samples.flac())), file(u"b.mp3"_s, contentOf(samples.mp3())),
             file(u"c.m4a"_s, contentOf(samples.m4a())), file(u"d.wv"_s, contentOf(samples.wavpack()))});
    QList<QByteArray> before;
    for (qsizetype row = 0; row < 4; ++row)
        before += content(row);
    type(u"Anna"_s);
    tab.albumArtImageView->replaceImage(cover);
    write();
    EXPECT_EQ(result(), u"3 of 4 files written. a.flac: The cover was not saved, but all else was: no FLAC file can "
                        "hold so large a picture."_s);
    for (qsizetype row = 0; row < 4; ++row)
        EXPECT_EQ(artistAt(row), u"Anna"_s) << row;
    for (const qsizetype row : {1, 2}) {
        EXPECT_TRUE(content(row).contains(png)) << row;
        EXPECT_TRUE(tagsAt(row)->albumArt()) << row;
    }
    tab.undoWrite(nullptr);
    for (qsizetype row = 0; row < 4; ++row)
        EXPECT_TRUE(content(row) == before[row]) << row;
}

TEST_F(TagsBadInput, ABrokenPictureOfTheFileIsToldAndKept)
{
    const QString png = samples.picture("png");
    writeContent(png, contentOf(png).first(60));
    const QString path = file(u"a.flac"_s, contentOf(samples.flac()));
    addArtElsewhere(path, png, u"image/png"_s);
    listAll({path});
    EXPECT_EQ(tab.coverInWords(), u"The file has a picture that cannot be shown here."_s);
    type(u"Anna"_s);
    write();
    EXPECT_EQ(artistAt(0), u"Anna"_s);
    EXPECT_TRUE(content(0).contains(contentOf(png)));
    tab.setWriteEmptyTags(true);
    EXPECT_THAT(tab.workPlan().cautions,
                testing::Contains(u"The picture that cannot be shown here is removed from the file."_s));
}

TEST_F(TagsBadInput, ACoverIsToldWithItsKindAndSize)
{
    const QByteArray jpeg = contentOf(samples.picture("jpeg", 61));
    EXPECT_EQ(coverInWords(*Image::fromData(jpeg)), u"JPEG, 61 × 40, %1 bytes"_s.arg(jpeg.size()));
    EXPECT_EQ(coverInWords(*Image::fromPixels(QImage(3, 2, QImage::Format_RGB32))), u"3 × 2"_s);
}
