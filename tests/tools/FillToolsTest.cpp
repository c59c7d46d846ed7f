#include "platform/files/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

class FillTools : public testing::Test
{
protected:
    QString in(const QString& name) const { return folder_.filePath(name); }

    void fill(const QStringList& companions = {})
    {
        ASSERT_EQ(QProcess::execute(QStringLiteral(FILL_TOOLS), QStringList{folder_.path()} + companions), 0);
    }

    QString target(const QString& name) const { return QFileInfo(in(name)).symLinkTarget(); }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(FillTools, LinksThePackagedToolsUnderTheNamesThatAreCalled)
{
    fill();
    EXPECT_EQ(target(u"flac"_s), u"/usr/bin/flac"_s);
    EXPECT_EQ(target(u"mkisofs"_s), u"/usr/bin/genisoimage"_s);
    EXPECT_EQ(target(u"cdda2wav"_s), u"/usr/bin/icedax"_s);
}

TEST_F(FillTools, LeavesNoLinkForAToolThatIsNotThere)
{
    fill({u"shntool="_s});
    EXPECT_FALSE(QFileInfo(in(u"shntool"_s)).isSymLink());
}

TEST_F(FillTools, NeverReplacesWhatItDidNotPlace)
{
    ASSERT_TRUE(zolt::writeTextAtomically(in(u"flac"_s), u"mine"_s));
    ASSERT_TRUE(QFile::link(u"/bin/true"_s, in(u"sox"_s)));
    ASSERT_TRUE(QFile::link(u"/nowhere/lame"_s, in(u"lame"_s)));
    fill();
    fill();
    QFile file(in(u"flac"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "mine");
    EXPECT_EQ(target(u"sox"_s), u"/bin/true"_s);
    EXPECT_EQ(target(u"lame"_s), u"/nowhere/lame"_s);
}

TEST_F(FillTools, LeavesALinkAloneThatWasChangedByHand)
{
    fill();
    ASSERT_TRUE(QFile::remove(in(u"flac"_s)));
    ASSERT_TRUE(QFile::link(u"/bin/true"_s, in(u"flac"_s)));
    fill();
    EXPECT_EQ(target(u"flac"_s), u"/bin/true"_s);
}

TEST_F(FillTools, RenewsItsOwnLinks)
{
    fill({u"shntool=/old/shntool"_s});
    EXPECT_EQ(target(u"shntool"_s), u"/old/shntool"_s);
    fill({u"shntool=/new/shntool"_s});
    EXPECT_EQ(target(u"shntool"_s), u"/new/shntool"_s);
    fill({u"shntool="_s});
    EXPECT_FALSE(QFileInfo(in(u"shntool"_s)).isSymLink());
}

TEST_F(FillTools, FillsAGapOnALaterRun)
{
    fill();
    ASSERT_TRUE(QFile::remove(in(u"flac"_s)));
    fill();
    EXPECT_EQ(target(u"flac"_s), u"/usr/bin/flac"_s);
}
