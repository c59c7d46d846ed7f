// Files that this program has encoded itself: tagging and optimising leaves their audio alone.
#include "tags/AACTagsHelper.h"

#include "encode/EncodeCoreAudioSync.h"
#include "engine/ZOLTTask.h"
#include "tags/m4a/M4AFiles.h"
#include "tags/mp4/Mp4Optimizer.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

struct Target
{
    const char* name;
    uint32_t format;
};

void PrintTo(const Target& tested, std::ostream* out)
{
    *out << tested.name;
}

class OwnEncoder : public testing::TestWithParam<Target>
{
protected:
    /// A task and its results hold each other; the queue, which lets go of them, is not there.
    ~OwnEncoder() override { task_->setResults(nullptr); }

    /// Five seconds in stereo, so that the audio takes several chunks.
    QString encoded()
    {
        const QString wave = files_.pathOf(u"source.wav"_s);
        printed(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                              u"anoisesrc=d=5:a=0.3:seed=7,aformat=s16:r=44100:cl=stereo"_s, wave});
        const QString path = files_.pathOf(u"own.m4a"_s);
        EncodeCoreAudioSync::initEncodeWithTaskFileNameOutputFileFormatTypeFileType(task_, wave, path,
                                                                                    GetParam().format, fileTypeId::M4a)
            ->doEncodeCall();
        EXPECT_FALSE(task_->error()) << task_->results()->results().toStdString();
        return path;
    }

    TagsObject record(int length = 1)
    {
        TagsObject tags;
        tags.setTitleText(u"Título "_s.repeated(length));
        tags.setTrackText(u"3"_s);
        tags.setEncoderSettings(u"CBR 256kbps"_s);
        tags.setAlbumArt(Image::fromData(contentOf(files_.picture())));
        return tags;
    }

    static void write(const QString& path, const TagsObject& tags, bool encoding)
    {
        AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, false, encoding);
    }

    M4AFiles files_;
    std::shared_ptr<ZOLTTask> task_ = ZOLTTask::initWithQueue(nullptr);
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, OwnEncoder,
                         testing::Values(Target{"AppleLossless", formatId::AppleLossless},
                                         Target{"AAC", formatId::Aac}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(OwnEncoder, AudioStaysWhenTheFileIsTaggedAfterEncodingAndTaggedAgain)
{
    const QString path = encoded();
    const QString before = packets(path);
    ASSERT_GT(before.count(u'\n'), 50);
    write(path, record(), true);
    EXPECT_EQ(packets(path), before);
    write(path, record(1000), false);
    EXPECT_EQ(packets(path), before);
    EXPECT_TRUE(decodesCleanly(path));
    EXPECT_EQ(seenItem(path, "covr").size(), 1);
    EXPECT_TRUE(seenText(path, "\251too").endsWith(u", CBR 256kbps"_s));
    const QByteArrayList names = atomNames(contentOf(path));
    EXPECT_LT(names.indexOf("moov"), names.indexOf("mdat"));
    EXPECT_FALSE(names.contains("free"));
}

TEST_P(OwnEncoder, AudioStaysWhenTheFileIsOptimisedAlone)
{
    const QString path = encoded();
    const QString target = files_.pathOf(u"optimized.m4a"_s);
    writeOptimized(Mp4Document(path, Mp4Document::Access::Read), target);
    EXPECT_EQ(packets(target), packets(path));
    EXPECT_TRUE(decodesCleanly(target));
}
