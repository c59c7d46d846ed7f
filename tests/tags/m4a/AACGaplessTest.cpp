#include "tags/AACTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "tags/m4a/M4AFiles.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStandardPaths>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AACGapless : public testing::Test
{
protected:
    void SetUp() override { qputenv("ZOLT_TOOLS", files_.pathOf(QString()).toUtf8()); }
    void TearDown() override { qunsetenv("ZOLT_TOOLS"); }

    QString tool() { return files_.pathOf(u"AtomicParsley"_s); }

    M4AFiles files_;
};

} // namespace

TEST_F(AACGapless, TheToolGetsItsArgumentsAndItsPadding)
{
    const QString record = files_.pathOf(u"record"_s);
    writeContent(tool(), "#!/bin/sh\nprintf '%s\\n' \"$@\" \"$AP_PADDING\" > '" + record.toUtf8() + "'\nexit 3\n");
    ASSERT_TRUE(QFile::setPermissions(tool(), QFile::ReadOwner | QFile::ExeOwner));
    AACTagsHelper().makeGapless(u"/a folder/b.m4a"_s);
    EXPECT_EQ(contentOf(record), "/a folder/b.m4a\n--overWrite\n--gapless\n--true\n\"DEFAULT_PAD=0:MAX_PAD=0\"\n");
}

TEST_F(AACGapless, TheFileIsMarkedAndItsAudioStays)
{
    const QString real = QStandardPaths::findExecutable(u"AtomicParsley"_s);
    ASSERT_FALSE(real.isEmpty()) << "install atomicparsley";
    ASSERT_TRUE(QFile::link(real, tool()));
    const QString path = files_.copyOf(files_.lossless());
    TagsObject tags;
    tags.setTitleText(u"Title"_s);
    AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, false, true);
    AACTagsHelper().makeGapless(path);
    EXPECT_TRUE(printed(u"AtomicParsley"_s, {path, u"-t"_s}).contains(u"\"pgap\" contains: true"_s));
    EXPECT_EQ(AACTagsHelper().tagsForFile(path)->titleText(), u"Title"_s);
    EXPECT_EQ(packets(path), packets(files_.lossless()));
}

TEST_F(AACGapless, AMissingToolIsAFault)
{
    EXPECT_THROW(AACTagsHelper().makeGapless(files_.lossless()), PlatformException);
}
