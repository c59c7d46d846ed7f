#include "tags/AACTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "support/FileSizeLimit.h"
#include "tags/OptimizedReplacement.h"
#include "tags/m4a/M4AFiles.h"
#include "tags/mp4/Mp4Tables.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AACTagsFailure : public testing::Test
{
protected:
    void write(const QString& path)
    {
        TagsObject tags;
        tags.setTitleText(u"New title"_s);
        AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, false, false);
    }

    void expectFault(const QString& name, const QString& reason, const std::function<void()>& work)
    {
        try {
            work();
            ADD_FAILURE() << "no exception";
        } catch (const PlatformException& fault) {
            EXPECT_EQ(fault.name(), name);
            EXPECT_EQ(fault.reason(), reason);
        }
    }

    void expectUnwritable(const QString& path)
    {
        expectFault(u"AssertionException"_s, u"Unable to open the output file for tagging."_s, [&] { write(path); });
    }

    QStringList temporaryFiles() { return QFileInfo(files_.pathOf(u"x"_s)).dir().entryList({u"Zolt-*"_s}); }

    QString title(const QString& path) { return textOrEmpty(AACTagsHelper().tagsForFile(path)->titleText()); }

    M4AFiles files_;
};

} // namespace

TEST_F(AACTagsFailure, WhatDoesNotOpenFailsTheAssertion)
{
    expectUnwritable(files_.pathOf(u"none.m4a"_s));
    expectUnwritable(files_.pathOf(QString()));
}

TEST_F(AACTagsFailure, BrokenFilesAreNotTouched)
{
    const QByteArray whole = contentOf(files_.lossless());
    for (const QByteArray& bytes : {QByteArray(), QByteArray("fLaC is not an M4A file"), whole.chopped(1),
                                    whole + whole, whole.first(whole.indexOf("moov") - 4)}) {
        const QString path = files_.stored(u"broken.m4a"_s, bytes);
        expectUnwritable(path);
        EXPECT_EQ(contentOf(path), bytes);
    }
    EXPECT_EQ(temporaryFiles(), QStringList());
}

TEST_F(AACTagsFailure, AFileThatCannotBeRearrangedIsTaggedAsItLies)
{
    // Samples that the index expects behind the end of the file.
    const QByteArray file = withIndex(contentOf(files_.lossless()), [](Mp4Box& index) {
        relocateChunks(index, [](quint64 position) { return position + 1'000'000; });
    });
    const QString path = files_.stored(u"dangling.m4a"_s, file);
    expectFault(u"Exception"_s, u"unable to optimize @% file"_s, [&] { write(path); });
    EXPECT_EQ(title(path), u"New title"_s);
    EXPECT_EQ(contentOf(path).first(file.size()), QByteArray(file).replace("moov", "free"));
    EXPECT_EQ(temporaryFiles(), QStringList());
}

TEST_F(AACTagsFailure, AFullDiskCostsNothing)
{
    const QString path = files_.copyOf(files_.lossless());
    const QByteArray before = contentOf(path);
    {
        const FileSizeLimit limit(rlim_t(before.size()) / 2);
        expectFault(u"Exception"_s, u"unable to optimize @% file"_s, [&] { write(path); });
    }
    EXPECT_EQ(contentOf(path), before);
    EXPECT_EQ(temporaryFiles(), QStringList());
}

TEST_F(AACTagsFailure, ADiskThatIsNearlyFullStillTakesTheTags)
{
    const QString path = files_.copyOf(files_.fromAtomicParsley());
    const QByteArray before = contentOf(path);
    {
        // Room for the optimised file, but not for the tags behind the old one.
        const FileSizeLimit limit(rlim_t(before.size()));
        write(path);
    }
    EXPECT_EQ(title(path), u"New title"_s);
    EXPECT_EQ(packets(path), packets(files_.lossless()));
}

TEST_F(AACTagsFailure, AnOldFileThatStaysIsTold)
{
    const QString folder = files_.pathOf(u"folder.m4a"_s);
    ASSERT_TRUE(QDir().mkpath(folder + u"/inside"_s));
    const QString temporary = files_.stored(u"Zolt-new.m4a"_s, "new");
    expectFault(u"Exception"_s, u"unable to delete file @%"_s, [&] { replaceFile(temporary, folder); });
    EXPECT_TRUE(QFileInfo::exists(folder + u"/inside"_s));
    EXPECT_EQ(temporaryFiles(), QStringList());
}

TEST_F(AACTagsFailure, ALostFileIsTold)
{
    const QString path = files_.pathOf(u"gone/a.m4a"_s);
    const QString temporary = files_.stored(u"Zolt-new.m4a"_s, "new");
    expectFault(u"Exception"_s, u"file @% was lost"_s, [&] { replaceFile(temporary, path); });
    EXPECT_EQ(contentOf(temporary), "new") << "the only one that is left";
}

TEST_F(AACTagsFailure, AFileThatVanishesMeanwhileIsNotBroughtBack)
{
    const QString path = files_.copyOf(files_.lossless());
    Mp4Document document(path, Mp4Document::Access::Modify);
    ASSERT_TRUE(QFile::remove(path));
    expectFault(u"Exception"_s, u"unable to optimize @% file"_s, [&] { replaceWithOptimized(document, path); });
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_EQ(temporaryFiles(), QStringList());
}

TEST_F(AACTagsFailure, ALinkStaysALink)
{
    const QString path = files_.copyOf(files_.lossless());
    const QString link = files_.pathOf(u"link.m4a"_s);
    ASSERT_TRUE(QFile::link(path, link));
    write(link);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(title(path), u"New title"_s);
    EXPECT_EQ(atomNames(contentOf(path)), QByteArrayList({"ftyp", "moov", "mdat"}));
}

TEST_F(AACTagsFailure, TheFileKeepsItsMode)
{
    const QString path = files_.copyOf(files_.lossless());
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0640), 0);
    write(path);
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    EXPECT_EQ(temporaryFiles(), QStringList());
}

TEST_F(AACTagsFailure, AFileWithoutExtensionIsTagged)
{
    const QString path = files_.copyOf(files_.lossless(), u"noextension"_s);
    write(path);
    EXPECT_EQ(title(path), u"New title"_s);
}
