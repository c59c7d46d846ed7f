// Files that are not what their names say are left alone.
#include "tags/TagFormats.h"

#include "platform/errors/Exceptions.h"

#include <QDir>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

using TagKinds = TagFormatTest;

INSTANTIATE_TEST_SUITE_P(Formats, TagKinds, testing::ValuesIn(tagFormats()), nameOfFormat);

TEST_P(TagKinds, FilesOfAnotherKindAreNotTouched)
{
    const QString m4a = files.pathOf(u"sound.m4a"_s);
    const QString ogg = files.pathOf(u"sound.oga"_s); // FLAC in another container
    const QString adts = files.pathOf(u"sound.aac"_s);
    for (const QString& other : {m4a, ogg, adts})
        printed(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, files.wav(), other});
    QStringList others = {m4a, ogg, adts, files.wav(), files.picture("png"), files.picture("jpeg")};
    for (const TagFormat& format : tagFormats())
        if (format.sample != GetParam().sample) others += (files.*format.sample)();
    for (const QString& other : others) {
        const QByteArray before = contentOf(other);
        EXPECT_THROW(GetParam().write(other, fullRecord(), true), AssertionException) << other.toStdString();
        EXPECT_EQ(contentOf(other), before) << other.toStdString();
    }
}

TEST_P(TagKinds, FilesOfNoKindAreNotTouched)
{
    const QString path = files.pathOf(u"other"_s);
    for (const QByteArray& bytes : {QByteArray(), QByteArray("x"), QByteArray("plain text\n").repeated(100),
                                    QByteArray(70000, '\0'), QByteArray(70000, '\xff')}) {
        writeContent(path, bytes);
        EXPECT_THROW(GetParam().write(path, fullRecord(), false), AssertionException);
        EXPECT_EQ(contentOf(path), bytes);
    }
}

TEST_P(TagKinds, FilesOfOtherPeopleAreTaggedAndKeepTheirSound)
{
    const QDir folder(QStringLiteral(ZOLT_FIXTURES));
    if (!folder.exists()) GTEST_SKIP() << "left out: the folder " << ZOLT_FIXTURES << " is not there";
    const QHash<QString, QStringList> names = {{u"FLAC"_s, {u"multiple-vc.flac"_s}},
                                               {u"AIFF"_s, {u"noise.aif"_s}},
                                               {u"MP3"_s, {u"xing.mp3"_s}},
                                               {u"APE"_s, {u"mac-399.ape"_s, u"mac-399-tagged.ape"_s}},
                                               {u"Wavpack"_s, {u"click.wv"_s}}};
    for (const QString& name : names[QString::fromLatin1(GetParam().name)]) {
        const QString path = files.pathOf(name);
        writeContent(path, contentOf(folder.filePath(name)));
        const auto sound = [&] {
            return printed(u"ffmpeg"_s,
                           {u"-v"_s, u"fatal"_s, u"-i"_s, path, u"-map"_s, u"0:a"_s, u"-f"_s, u"md5"_s, u"-"_s});
        };
        const QString before = sound();
        EXPECT_FALSE(GetParam().write(path, fullRecord(), false)) << name.toStdString();
        EXPECT_EQ(GetParam().read(path)->titleText(), fullRecord().titleText()) << name.toStdString();
        EXPECT_EQ(sound(), before) << name.toStdString();
    }
}
