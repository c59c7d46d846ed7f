#include "shell/Util.h"

#include "platform/desktop/UserDefaults.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "shell/DefaultSettings.h"
#include "shell/TemporaryFileSteps.h"
#include "support/test.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <set>
#include <thread>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class UtilFiles : public testing::Test
{
protected:
    QString at(const QString& name) const { return directory_.filePath(name); }
    void place(const QString& name) const { ASSERT_TRUE(writeTextAtomically(at(name), u"audio"_s)); }

    /// The reason of the failure to make a file; empty if it was made.
    static QString failureOf(const OptionalText& directory, const OptionalText& extension)
    {
        try {
            (void)Util::generateTempFileNameExtension(directory, extension);
        } catch (const AssertionException& exception) {
            return exception.reason();
        }
        return QString();
    }

    QTemporaryDir directory_;
};

/// With settings and trash of the test's own.
class UtilDeletion : public UtilFiles
{
protected:
    void SetUp() override
    {
        data_ = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", QFile::encodeName(at(u"data"_s)));
        UserDefaults::standard().reopen(at(u"settings.ini"_s));
        registerDefaultSettings();
    }
    void TearDown() override { qputenv("XDG_DATA_HOME", data_); }

    QByteArray data_;
};

/// With another directory of temporary files than the system's.
class UtilDefaultDirectory : public UtilFiles
{
protected:
    void SetUp() override { saved_ = qgetenv("TMPDIR"); }
    void TearDown() override
    {
        if (saved_.isNull()) {
            qunsetenv("TMPDIR");
        } else {
            qputenv("TMPDIR", saved_);
        }
    }

    QByteArray saved_;
};

const std::string randomPart = "[A-Za-z0-9]{8}";

} // namespace

TEST_F(UtilFiles, MakesAnEmptyFileOfTheNamesForm)
{
    const QString path = Util::generateTempFileNameExtension(directory_.path(), u"wav"_s);
    const QString start = at(u"Zolt-"_s + sessionIdentifier() + u'-');
    ASSERT_TRUE(path.startsWith(start)) << path.toStdString();
    EXPECT_THAT(path.mid(start.size()).toStdString(), testing::MatchesRegex(randomPart + "\\.wav"));
    const QFileInfo file(path);
    EXPECT_TRUE(file.isFile());
    EXPECT_EQ(file.size(), 0);
}

TEST_F(UtilFiles, EachFileHasARandomPartOfItsOwnAndAllTheSameSession)
{
    std::set<QString> paths;
    std::mutex mutex;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&] {
            for (int file = 0; file < 25; ++file) {
                const QString path = Util::generateTempFileNameExtension(directory_.path(), u"aiff"_s);
                const std::lock_guard guard(mutex);
                paths.insert(path);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(paths.size(), 100U);
    for (const QString& path : paths)
        EXPECT_TRUE(path.contains(u"/Zolt-"_s + sessionIdentifier() + u'-'));
}

TEST_F(UtilFiles, NoneOfTheEightLettersStaysAPlaceholderForAllFiles)
{
    std::set<QChar> atFirst;
    for (int file = 0; file < 50; ++file) {
        const QString path = Util::generateTempFileNameExtension(directory_.path(), u"wav"_s);
        atFirst.insert(path[path.size() - 12]);
    }
    EXPECT_GT(atFirst.size(), 1U);
}

TEST_F(UtilFiles, ADirectoryOrExtensionWithPlaceholdersOfItsOwnIsLeftAlone)
{
    ASSERT_TRUE(QDir(directory_.path()).mkdir(u"XXXXXXXX"_s));
    const QString path = Util::generateTempFileNameExtension(at(u"XXXXXXXX"_s), u"wäv"_s);
    EXPECT_TRUE(path.startsWith(at(u"XXXXXXXX/Zolt-"_s)));
    EXPECT_TRUE(path.endsWith(u".wäv"_s));
    EXPECT_TRUE(QFile::exists(path));
    const QString odd = Util::generateTempFileNameExtension(directory_.path(), u"XXXXXXXX"_s);
    EXPECT_TRUE(odd.endsWith(u".XXXXXXXX"_s));
    EXPECT_FALSE(odd.first(odd.size() - 9).contains(u"XX"_s)) << odd.toStdString();
}

TEST_F(UtilFiles, ADirectoryThatIsNotThereOrIsAFileTellsTheSystemsReason)
{
    place(u"file"_s);
    EXPECT_EQ(failureOf(at(u"gone"_s), u"wav"_s), u"Unable to create a temporary file: No such file or directory"_s);
    EXPECT_EQ(failureOf(at(u"file"_s), u"wav"_s), u"Unable to create a temporary file: Not a directory"_s);
}

TEST_F(UtilFiles, ADirectoryThatCannotBeWrittenTellsTheSystemsReason)
{
    EXPECT_THAT(failureOf(u"/proc/self"_s, u"wav"_s).toStdString(),
                testing::StartsWith("Unable to create a temporary file: "));
}

TEST_F(UtilFiles, APathTooLongIsCutAndMakesNoFile)
{
    QString deep = directory_.path();
    while (deep.size() < 1000)
        deep += u"/a-directory-of-a-long-name"_s;
    ASSERT_TRUE(QDir().mkpath(deep));
    EXPECT_EQ(failureOf(deep, u"wav"_s), u"Unable to create a temporary file: Invalid argument"_s);
    EXPECT_TRUE(directoryListing(deep).isEmpty());
}

TEST_F(UtilFiles, ThePathIsCutBehindAThousandAndTwentyThreeBytes)
{
    const qsizetype nameLength = Util::generateTempFileName2Extension(u"/d"_s, u"wav"_s).size() - 2;
    QString deep = directory_.path();
    while (deep.size() < 900)
        deep += u"/a-directory"_s;
    deep += u'/' + QString(1023 - nameLength - deep.size() - 1, u'd');
    ASSERT_TRUE(QDir().mkpath(deep));
    ASSERT_TRUE(QDir().mkpath(deep + u'd'));
    ASSERT_TRUE(QDir().mkpath(deep + u"ddd"_s));
    const auto made = [](const QString& folder) { return Util::generateTempFileNameExtension(folder, u"wav"_s); };
    EXPECT_EQ(made(deep).size(), 1023);
    EXPECT_TRUE(made(deep).endsWith(u".wav"_s));
    EXPECT_EQ(made(deep + u'd').size(), 1023);
    EXPECT_TRUE(made(deep + u'd').endsWith(u".wa"_s));
    // Six placeholders have to be left ahead of where the extension was to begin.
    EXPECT_EQ(failureOf(deep + u"ddd"_s, u"wav"_s), u"Unable to create a temporary file: Invalid argument"_s);
}

TEST_F(UtilFiles, AMissingExtensionFailsTheAssertion)
{
    EXPECT_EQ(failureOf(directory_.path(), std::nullopt), u"Invalid parameter not satisfying: nil != extension"_s);
    EXPECT_THROW((void)Util::generateTempFileName2Extension(directory_.path(), std::nullopt), AssertionException);
}

TEST_F(UtilFiles, TheNameAloneKeepsItsPlaceholdersAndMakesNoFile)
{
    const QString name = Util::generateTempFileName2Extension(at(u"gone"_s), u"wav"_s);
    EXPECT_EQ(name, at(u"gone/Zolt-"_s + sessionIdentifier() + u"-XXXXXXXX.wav"_s));
    EXPECT_TRUE(directoryListing(directory_.path()).isEmpty());
}

TEST_F(UtilDefaultDirectory, StandsInForAMissingOne)
{
    qputenv("TMPDIR", QFile::encodeName(directory_.path()));
    const QString path = Util::generateTempFileNameExtension(std::nullopt, u"wav"_s);
    EXPECT_EQ(path::deletingLastComponent(path), directory_.path());
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_TRUE(Util::generateTempFileName2Extension(std::nullopt, u"wav"_s).startsWith(at(u"Zolt-"_s)));
}

TEST_F(UtilDefaultDirectory, ThatIsNotThereEitherFailsTheAssertion)
{
    qputenv("TMPDIR", QFile::encodeName(at(u"gone"_s)));
    EXPECT_EQ(failureOf(std::nullopt, u"wav"_s), u"Invalid parameter not satisfying: nil != directory"_s);
    EXPECT_EQ(failureOf(std::nullopt, std::nullopt), u"Invalid parameter not satisfying: nil != directory"_s);
}

TEST_F(UtilDeletion, ByDefaultAFileIsGoneForGood)
{
    place(u"a.flac"_s);
    Util::deleteFile(at(u"a.flac"_s));
    EXPECT_TRUE(directoryListing(directory_.path()).isEmpty());
}

TEST_F(UtilDeletion, WithTheSettingItGoesToTheTrash)
{
    for (const int setting : {1, -1}) {
        UserDefaults::standard().set(u"trashOrDelete"_s, setting);
        place(u"a.flac"_s);
        Util::deleteFile(at(u"a.flac"_s));
        EXPECT_FALSE(QFile::exists(at(u"a.flac"_s)));
    }
    EXPECT_EQ(directoryListing(at(u"data/Trash/files"_s)).size(), 2);
}

TEST_F(UtilDeletion, AChangedSettingHoldsForTheNextDeletion)
{
    place(u"a"_s);
    place(u"b"_s);
    UserDefaults::standard().set(u"trashOrDelete"_s, 1);
    Util::deleteFile(at(u"a"_s));
    UserDefaults::standard().set(u"trashOrDelete"_s, 0);
    Util::deleteFile(at(u"b"_s));
    EXPECT_EQ(directoryListing(at(u"data/Trash/files"_s)), QStringList{u"a"_s});
    EXPECT_FALSE(QFile::exists(at(u"b"_s)));
}

TEST_F(UtilDeletion, AFileThatHasVanishedIsNoFailure)
{
    Util::deleteFile(at(u"gone"_s));
    UserDefaults::standard().set(u"trashOrDelete"_s, 1);
    Util::deleteFile(at(u"gone"_s));
}

TEST_F(UtilDeletion, ATaskThreadMayDelete)
{
    place(u"a"_s);
    std::thread([&] { Util::deleteFile(at(u"a"_s)); }).join();
    EXPECT_FALSE(QFile::exists(at(u"a"_s)));
}
