#include "util/BatchRename.h"

#include "UtilFixture.h"

#include "platform/desktop/Interfaces.h"
#include "shell/Outlook.h"
#include "shell/ZOLTStringGetterPanel.h"
#include "support/OrdinaryRights.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

TEST(BatchRename, CountsFromOneWithTwoDigits)
{
    QStringList files;
    for (int number = 0; number < 12; ++number)
        files += QStringLiteral("/d%1/f.%1.FLAC").arg(number);
    const QStringList paths = renamedPaths(files, u"x"_s);
    EXPECT_EQ(paths[0], u"/d0/x01.FLAC"_s);
    EXPECT_EQ(paths[8], u"/d8/x09.FLAC"_s);
    EXPECT_EQ(paths[11], u"/d11/x12.FLAC"_s);
    EXPECT_EQ(renamedPaths({u"/d/plain"_s, u"/d/a.b.c"_s}, u"p.q"_s), QStringList({u"/d/p.q01"_s, u"/d/p.q02.c"_s}));
}

TEST_F(UtilTest, RenamingAsksForThePrefix)
{
    choose(UtilTab::renaming);
    tab.addFiles({file(u"a.wav"_s)});
    panels_.answerModal([this](Window&) { panels_.stopModal(); });
    tab.executeCommand(nullptr); // the panel went without an answer
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(names().filter(u".wav"_s), QStringList{u"a.wav"_s});
}

TEST_F(UtilTest, RenamesAThousandFilesAtOnce)
{
    choose(UtilTab::renaming);
    QStringList files;
    for (int number = 0; number < 1000; ++number)
        files += file(QStringLiteral("in/%1.wav").arg(number, 4, 10, QChar(u'0')), QByteArray::number(number));
    tab.addFiles(files);
    tab.setPrefix(u"show "_s);
    tab.executeCommand(nullptr);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(tab.scanNote->stringValue(), u"1,000 files renamed"_s);
    const QStringList renamed = directoryOf(pathOf(u"in"_s));
    EXPECT_EQ(renamed.size(), 1000);
    EXPECT_TRUE(renamed.contains(u"show 01.wav"_s) && renamed.contains(u"show 1000.wav"_s));
    QFile last(pathOf(u"in/show 1000.wav"_s));
    ASSERT_TRUE(last.open(QIODevice::ReadOnly));
    EXPECT_EQ(last.readAll(), "999");
}

TEST_F(UtilTest, AFileThatCannotBeRenamedIsCounted)
{
    choose(UtilTab::renaming);
    tab.addFiles({file(u"a.wav"_s), pathOf(u"gone/b.wav"_s)});
    tab.setPrefix(u"x"_s);
    tab.executeCommand(nullptr);
    EXPECT_EQ(tab.scanNote->stringValue(), u"1 file renamed; 1 could not be"_s);
}

TEST_F(UtilTest, OneNameThatIsTakenKeepsAllFilesAndTheList)
{
    choose(UtilTab::renaming);
    const QStringList files{file(u"a.wav"_s), file(u"b.wav"_s)};
    const QString taken = file(u"x02.wav"_s);
    tab.addFiles(files);
    tab.setPrefix(u"x"_s);
    panels_.answerAlert(1);
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.alerts()[0].title, u"Error"_s);
    EXPECT_EQ(panels_.alerts()[0].message, u"File at \"%1\" already exists"_s.arg(taken));
    EXPECT_EQ(panels_.alerts()[0].buttons, QStringList{u"OK"_s});
    EXPECT_EQ(tab.fileNames().copy(), files);
    EXPECT_TRUE(exists(u"a.wav"_s) && exists(u"b.wav"_s));
}

TEST_F(UtilTest, ALinkThatLeadsNowhereTakesItsNameToo)
{
    choose(UtilTab::renaming);
    const QStringList files{file(u"a.wav"_s), file(u"b.wav"_s)};
    ASSERT_TRUE(QFile::link(pathOf(u"nowhere"_s), pathOf(u"x02.wav"_s)));
    tab.addFiles(files);
    tab.setPrefix(u"x"_s);
    panels_.answerAlert(1);
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.alerts()[0].message, u"File at \"%1\" already exists"_s.arg(pathOf(u"x02.wav"_s)));
    EXPECT_TRUE(exists(u"a.wav"_s) && exists(u"b.wav"_s));
}

TEST_F(UtilTest, FilesOfAFolderThatMayOnlyBeReadKeepTheirNamesAndThePageSaysSoBeforehand)
{
    choose(UtilTab::renaming);
    tab.addFiles({file(u"locked/a.wav"_s), file(u"open/b.wav"_s)});
    ASSERT_TRUE(QFile::setPermissions(pathOf(u"locked"_s), QFile::ReadOwner | QFile::ExeOwner));
    {
        const OrdinaryRights rights;
        if (!rights.hold()) GTEST_SKIP() << "this root may not give its rights away";
        const std::atomic<bool> stop = false;
        const auto sentences = outlookOf(tab.workPlan(), LocalDisk(), stop).sentences();
        EXPECT_TRUE(sentences.contains(
            u"The folder %1 cannot be written to: its files keep their names"_s.arg(pathOf(u"locked"_s))));
        EXPECT_FALSE(sentences.join(u'\n').contains(pathOf(u"open"_s)));
        tab.setPrefix(u"x"_s);
        tab.executeCommand(nullptr);
    }
    EXPECT_EQ(directoryOf(pathOf(u"locked"_s)), QStringList{u"a.wav"_s});
    EXPECT_EQ(directoryOf(pathOf(u"open"_s)), QStringList{u"x02.wav"_s});
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_TRUE(panels_.alerts().empty());
    QFile::setPermissions(pathOf(u"locked"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(UtilTest, AnEmptyPrefixEmptiesTheListAlone)
{
    choose(UtilTab::renaming);
    tab.addFiles({file(u"a.wav"_s)});
    tab.setPrefix(u""_s);
    tab.executeCommand(nullptr);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_TRUE(exists(u"a.wav"_s));
}

TEST_F(UtilTest, AFileThatCannotBeMovedStaysWithoutAWord)
{
    choose(UtilTab::renaming);
    tab.addFiles({pathOf(u"gone.wav"_s), file(u"z.wav"_s)});
    tab.setPrefix(u"x"_s);
    tab.executeCommand(nullptr);
    EXPECT_TRUE(exists(u"x02.wav"_s));
    EXPECT_FALSE(exists(u"x01.wav"_s));
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(UtilTest, WhatIsTypedIntoThePanelIsThePrefix)
{
    choose(UtilTab::renaming);
    tab.addFiles({file(u"a.b.wav"_s), file(u"plain"_s)});
    QString message;
    installInterface(u"StringGetterPanel"_s, [&](void* owner) {
        auto& panel = *static_cast<ZOLTStringGetterPanel*>(owner);
        panels_.answerModal([&](Window&) {
            message = panel.messageText->stringValue();
            EXPECT_EQ(panel.textField->stringValue(), QString());
            panel.textField->enterText(u"My Show "_s);
            panel.ok(nullptr);
        });
    });
    const LogCapture log;
    tab.executeCommand(nullptr);
    installInterface(u"StringGetterPanel"_s, nullptr);
    EXPECT_EQ(message, u"Enter the Prefix that you want the files to start with:"_s);
    EXPECT_TRUE(exists(u"My Show 01.wav"_s));
    EXPECT_TRUE(exists(u"My Show 02"_s));
    EXPECT_EQ(log.count(u"moving %1 to %2"_s.arg(pathOf(u"a.b.wav"_s), pathOf(u"My Show 01.wav"_s))), 1);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(UtilTest, FilesOfSeveralFoldersStayInTheirs)
{
    choose(UtilTab::renaming);
    tab.addFiles({file(u"one/a.wav"_s), file(u"two/a.flac"_s)});
    tab.setPrefix(u"x"_s);
    tab.executeCommand(nullptr);
    EXPECT_TRUE(exists(u"one/x01.wav"_s) && exists(u"two/x02.flac"_s));
}
