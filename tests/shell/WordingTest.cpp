#include "shell/Wording.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(Wording, CountsInSingularAndPlural)
{
    EXPECT_EQ(counted(1, u"file"_s), u"1 file"_s);
    EXPECT_EQ(counted(0, u"file"_s), u"0 files"_s);
}

TEST(Wording, EnumeratesWithAnAndBeforeTheLast)
{
    EXPECT_EQ(enumerated({}), QString());
    EXPECT_EQ(enumerated({u"A"_s}), u"A"_s);
    EXPECT_EQ(enumerated({u"A"_s, u"B"_s, u"C"_s}), u"A, B and C"_s);
}

TEST(Wording, FilesAreNamedByTheirKinds)
{
    EXPECT_EQ(filesInWords({u"/b.wv"_s, u"/a.flac"_s, u"/c.FLAC"_s}), u"3 FLAC and WV files"_s);
    EXPECT_EQ(filesInWords({u"/plain"_s}), u"1 file"_s);
}
