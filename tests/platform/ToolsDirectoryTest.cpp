#include "platform/desktop/ToolsDirectory.h"

#include "support/test.h"

#include <QDir>
#include <QFile>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class ToolsDirectory : public testing::Test
{
protected:
    void SetUp() override
    {
        saved_ = qgetenv("ZOLT_TOOLS");
        qputenv("ZOLT_TOOLS", QFile::encodeName(directory_.path()));
    }
    void TearDown() override { qputenv("ZOLT_TOOLS", saved_); }

    void place(const QString& name, QFile::Permissions permissions, const QByteArray& content = {})
    {
        QFile file(directory_.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        ASSERT_TRUE(file.setPermissions(permissions));
    }

    QTemporaryDir directory_;
    QByteArray saved_;
};

constexpr QFile::Permissions readable = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions executable = readable | QFile::ExeOwner;

} // namespace

TEST_F(ToolsDirectory, TheEnvironmentNamesIt)
{
    EXPECT_EQ(toolsDirectory(), directory_.path());
    EXPECT_EQ(toolPath(u"flac"_s), directory_.filePath(u"flac"_s));
}

TEST_F(ToolsDirectory, ASlashAtTheEndOfTheEnvironmentsPathIsDropped)
{
    qputenv("ZOLT_TOOLS", QFile::encodeName(directory_.path() + u'/'));
    EXPECT_EQ(toolsDirectory(), directory_.path());
}

TEST_F(ToolsDirectory, ARelativePathOfTheEnvironmentIsMadeAbsolute)
{
    qputenv("ZOLT_TOOLS", "some/tools");
    EXPECT_EQ(toolsDirectory(), QDir::currentPath() + u"/some/tools"_s);
}

TEST_F(ToolsDirectory, WithNoEnvironmentTheProgramOfABuildTreeUsesTheBuildTreesTools)
{
    qputenv("ZOLT_TOOLS", "");
    EXPECT_EQ(toolsDirectory(), toolsDirectoryBeside(u"/nonexistent/bin"_s));
    EXPECT_TRUE(toolsDirectory().endsWith(u"/tools"_s));
}

TEST_F(ToolsDirectory, AnInstalledProgramUsesTheLibexecDirectoryBesideIt)
{
    ASSERT_TRUE(QDir(directory_.path()).mkpath(u"libexec/zolt/tools"_s));
    EXPECT_EQ(toolsDirectoryBeside(directory_.filePath(u"bin"_s)), directory_.filePath(u"libexec/zolt/tools"_s));
}

TEST_F(ToolsDirectory, EachToolKnowsItsPackage)
{
    EXPECT_EQ(packageOfTool(u"metaflac"_s), u"flac"_s);
    EXPECT_EQ(packageOfTool(u"wvunpack"_s), u"wavpack"_s);
    EXPECT_EQ(packageOfTool(u"AtomicParsley"_s), u"atomicparsley"_s);
    EXPECT_EQ(packageOfTool(u"mkisofs"_s), u"genisoimage"_s);
    EXPECT_EQ(packageOfTool(u"cdda2wav"_s), u"icedax"_s);
    for (const QString& own : {u"shorten"_s, u"ttaenc"_s, u"mac"_s, u"dvda"_s})
        EXPECT_TRUE(packageOfTool(own).isEmpty());
}

TEST_F(ToolsDirectory, EveryKnownToolIsListedOnce)
{
    const QStringList tools = knownTools();
    EXPECT_EQ(tools.size(), 15);
    EXPECT_EQ(tools.first(), u"AtomicParsley"_s);
    EXPECT_EQ(tools.last(), u"wvunpack"_s);
}

TEST_F(ToolsDirectory, OnlyExecutableFilesCountAsThere)
{
    place(u"flac"_s, executable);
    place(u"sox"_s, readable);
    ASSERT_TRUE(QDir(directory_.path()).mkdir(u"lame"_s));
    ASSERT_TRUE(QFile::link(directory_.filePath(u"gone"_s), directory_.filePath(u"mac"_s)));

    const QList<MissingTool> missing = missingTools({u"sox"_s, u"flac"_s, u"lame"_s, u"mac"_s, u"shntool"_s});

    ASSERT_EQ(missing.size(), 4);
    EXPECT_EQ(missing[0].name, u"sox"_s);
    EXPECT_EQ(missing[0].package, u"sox"_s);
    EXPECT_EQ(missing[1].name, u"lame"_s);
    EXPECT_EQ(missing[2].name, u"mac"_s);
    EXPECT_TRUE(missing[2].package.isEmpty());
    EXPECT_EQ(missing[3].name, u"shntool"_s);
}

TEST_F(ToolsDirectory, ALinkToAToolCountsAsTheTool)
{
    place(u"icedax"_s, executable);
    ASSERT_TRUE(QFile::link(directory_.filePath(u"icedax"_s), directory_.filePath(u"cdda2wav"_s)));
    EXPECT_TRUE(missingTools({u"cdda2wav"_s}).isEmpty());
}

TEST_F(ToolsDirectory, TheMessageNamesToolPlaceAndPackage)
{
    const QString message = missingToolMessage({u"metaflac"_s, u"flac"_s});
    EXPECT_EQ(message,
              u"The tool \"metaflac\" is missing from %1. Install the Debian package \"flac\", which brings it."_s.arg(
                  directory_.path()));
}

TEST_F(ToolsDirectory, TheMessageSaysWhenThereIsNoPackage)
{
    const QString message = missingToolMessage({u"mac"_s, {}});
    EXPECT_TRUE(message.contains(u"\"mac\""_s));
    EXPECT_TRUE(message.contains(u"Debian has no package for it"_s));
}

TEST_F(ToolsDirectory, AToolThatLacksAnOptionCountsAsMissing)
{
    place(u"mkisofs"_s, executable, "#!/bin/sh\necho ' -dvd-video  x'; echo ' -no-dvd-audio -dvd-audio-x' >&2\n");
    const auto missing = missingTools({u"mkisofs"_s});
    ASSERT_EQ(missing.size(), 1);
    EXPECT_EQ(missing[0].option, u"-dvd-audio"_s);
    EXPECT_EQ(missingToolMessage(missing[0]),
              u"The tool \"mkisofs\" in %1 does not know the option -dvd-audio, which is needed. "
              "The packaged one does not: put a mkisofs that does in its place."_s.arg(directory_.path()));
    EXPECT_TRUE(missingToolMessage({u"mkisofs"_s, u"genisoimage"_s}).contains(u"Install the Debian package"_s));
}

TEST_F(ToolsDirectory, AToolIsAskedOnceAndAgainWhenItHasChanged)
{
    const QString asked = directory_.filePath(u"asked"_s);
    const QByteArray question = "#!/bin/sh\n[ \"$1\" = -help ] && echo x >>\"$(dirname \"$0\")/asked\"\n";
    place(u"mkisofs"_s, executable, question + "echo '  -dvd-audio   Generate'\n");
    EXPECT_TRUE(missingTools({u"mkisofs"_s}).isEmpty());
    EXPECT_TRUE(missingTools({u"mkisofs"_s}).isEmpty());
    EXPECT_EQ(QFile(asked).size(), 2);
    place(u"mkisofs"_s, executable, question + "exit 0\n");
    EXPECT_EQ(missingTools({u"mkisofs"_s}).size(), 1);
    EXPECT_EQ(QFile(asked).size(), 4);
}
