#include "platform/desktop/UserDefaults.h"
#include "platform/desktop/SettingsFile.h"

#include "support/test.h"

#include <QFile>

#include <thread>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class Defaults : public testing::Test
{
protected:
    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir directory_;
    QString path_ = directory_.filePath(u"below/settings.ini"_s);
};

} // namespace

TEST_F(Defaults, AKeyThatNobodyKnowsHasNoValue)
{
    const UserDefaults defaults(path_);
    EXPECT_FALSE(defaults.objectForKey(u"k"_s));
    EXPECT_EQ(defaults.stringForKey(u"k"_s), QString());
    EXPECT_EQ(defaults.integerForKey(u"k"_s), 0);
    EXPECT_EQ(defaults.doubleForKey(u"k"_s), 0.0);
    EXPECT_FALSE(defaults.boolForKey(u"k"_s));
}

TEST_F(Defaults, ARegisteredValueStandsWhereNoneIsSavedAndIsNotSaved)
{
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"maxThreads"_s, 2}});
    EXPECT_EQ(defaults.integerForKey(u"maxThreads"_s), 2);
    EXPECT_FALSE(QFile::exists(path_));
    EXPECT_FALSE(UserDefaults(path_).objectForKey(u"maxThreads"_s));
}

TEST_F(Defaults, ASavedValueStandsAboveTheRegisteredOneWhicheverCameFirst)
{
    UserDefaults(path_).set(u"maxThreads"_s, 7);
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"maxThreads"_s, 2}, {u"trashOrDelete"_s, 0}});
    EXPECT_EQ(defaults.integerForKey(u"maxThreads"_s), 7);
    defaults.set(u"trashOrDelete"_s, 1);
    EXPECT_EQ(defaults.integerForKey(u"trashOrDelete"_s), 1);
}

TEST_F(Defaults, ASavedZeroStandsAboveTheRegisteredValue)
{
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"level"_s, 3}, {u"format"_s, u"%name"_s}});
    defaults.set(u"level"_s, 0);
    defaults.set(u"format"_s, QString());
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 0);
    EXPECT_EQ(defaults.stringForKey(u"format"_s), QString());
}

TEST_F(Defaults, AChangeIsInTheFileAtOnce)
{
    UserDefaults defaults(path_);
    defaults.set(u"level"_s, 5);
    EXPECT_EQ(UserDefaults(path_).integerForKey(u"level"_s), 5);
    defaults.set(u"level"_s, 6);
    EXPECT_EQ(UserDefaults(path_).integerForKey(u"level"_s), 6);
}

TEST_F(Defaults, ARemovedValueMakesPlaceForTheRegisteredOne)
{
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"level"_s, 5}});
    defaults.set(u"level"_s, 8);
    defaults.remove(u"level"_s);
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 5);
    EXPECT_FALSE(UserDefaults(path_).objectForKey(u"level"_s));
}

TEST_F(Defaults, ValuesComeBackFromTheFileAsTheyWere)
{
    const QString format = u" %number. \"%name\", %time; ü 音 \\n @x "_s;
    UserDefaults saving(path_);
    saving.set(u"format"_s, format);
    saving.set(u"decimal"_s, 0.5);
    saving.set(u"yes"_s, true);
    saving.set(u"no"_s, false);
    const UserDefaults read(path_);
    EXPECT_EQ(read.stringForKey(u"format"_s), format);
    EXPECT_DOUBLE_EQ(read.doubleForKey(u"decimal"_s), 0.5);
    EXPECT_TRUE(read.boolForKey(u"yes"_s));
    EXPECT_EQ(read.integerForKey(u"yes"_s), 1) << "a box may stand for a number's key";
    EXPECT_EQ(read.doubleForKey(u"yes"_s), 1.0);
    EXPECT_FALSE(read.boolForKey(u"no"_s));
}

TEST_F(Defaults, ANumberReadsFromTheStartOfAText)
{
    UserDefaults defaults(path_);
    defaults.set(u"a"_s, u" 12abc"_s);
    defaults.set(u"b"_s, u"none"_s);
    EXPECT_EQ(defaults.integerForKey(u"a"_s), 12);
    EXPECT_TRUE(defaults.boolForKey(u"a"_s));
    EXPECT_EQ(defaults.integerForKey(u"b"_s), 0);
    EXPECT_FALSE(defaults.boolForKey(u"b"_s));
}

TEST_F(Defaults, KeptInMemoryNothingIsSavedAndSavedValuesShowThrough)
{
    UserDefaults(path_).set(u"level"_s, 5);
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"other"_s, 9}});
    defaults.keepInMemory();
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 5);
    defaults.set(u"level"_s, 6);
    defaults.set(u"other"_s, 1);
    defaults.remove(u"other"_s);
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 6);
    EXPECT_EQ(defaults.integerForKey(u"other"_s), 9);
    EXPECT_EQ(UserDefaults(path_).integerForKey(u"level"_s), 5);
}

TEST_F(Defaults, AnotherFileTakesTheSavedValuesPlaceAndIsSavedTo)
{
    const QString other = directory_.filePath(u"other.ini"_s);
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"level"_s, 5}});
    defaults.set(u"level"_s, 6);
    defaults.keepInMemory();
    defaults.reopen(other);
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 5);
    defaults.set(u"level"_s, 7);
    EXPECT_EQ(UserDefaults(other).integerForKey(u"level"_s), 7);
    EXPECT_EQ(UserDefaults(path_).integerForKey(u"level"_s), 6);
}

TEST_F(Defaults, ThreadsReadWhileAnotherFileIsOpened)
{
    const QString other = directory_.filePath(u"other.ini"_s);
    UserDefaults(other).set(u"level"_s, 7);
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"level"_s, 5}});
    std::atomic<bool> done = false;
    std::thread reader([&] {
        while (!done)
            EXPECT_THAT(defaults.integerForKey(u"level"_s), testing::AnyOf(5, 7));
    });
    for (int turn = 0; turn < 20; ++turn)
        defaults.reopen(turn % 2 == 0 ? other : path_);
    done = true;
    reader.join();
}

TEST_F(Defaults, TwoRunningProgramsDoNotUndoEachOthersKeys)
{
    UserDefaults one(path_);
    UserDefaults two(path_);
    one.set(u"a"_s, 1);
    two.set(u"b"_s, 2);
    const UserDefaults read(path_);
    EXPECT_EQ(read.integerForKey(u"a"_s), 1);
    EXPECT_EQ(read.integerForKey(u"b"_s), 2);
}

TEST_F(Defaults, AFileThatCannotBeWrittenKeepsTheValueForThisRunAndIsLogged)
{
    QFile blocker(directory_.filePath(u"below"_s));
    ASSERT_TRUE(blocker.open(QFile::WriteOnly));
    UserDefaults defaults(path_);
    testing::internal::CaptureStderr();
    defaults.set(u"level"_s, 6);
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_THAT(log, testing::HasSubstr(path_.toStdString()));
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 6);
}

TEST_F(Defaults, ThreadsReadAndWriteAtOnce)
{
    UserDefaults defaults(path_);
    defaults.registerDefaults({{u"trashOrDelete"_s, 1}});
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&, number] {
            const QString own = u"key%1"_s.arg(number);
            for (int value = 1; value <= 20; ++value) {
                defaults.set(own, value);
                EXPECT_EQ(defaults.integerForKey(own), value);
                EXPECT_EQ(defaults.integerForKey(u"trashOrDelete"_s), 1);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const UserDefaults read(path_);
    for (int number = 0; number < 4; ++number)
        EXPECT_EQ(read.integerForKey(u"key%1"_s.arg(number)), 20);
}

TEST_F(Defaults, AFileOfGarbageCountsAsEmptyAndIsSavedTo)
{
    const QString path = directory_.filePath(u"garbage.ini"_s);
    const QByteArray garbage("\x00\xff[[[\n=\nno value\n]=%%\n\x80", 22);
    write(path, garbage);
    UserDefaults defaults(path);
    defaults.registerDefaults({{u"level"_s, 5}});
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 5);
    defaults.set(u"level"_s, 6);
    EXPECT_EQ(UserDefaults(path).integerForKey(u"level"_s), 6);
    EXPECT_EQ(bytesOf(path + u".kept1"_s), garbage);
}

TEST_F(Defaults, ADamagedFileIsToldAndKeptAsItWasAheadOfTheFirstSaving)
{
    const QString path = directory_.filePath(u"settings.ini"_s);
    const QByteArray damaged = "[General]\nlevel=5\nhalf a li\nother=6\n";
    write(path, damaged);
    UserDefaults defaults(path);
    EXPECT_THAT(defaults.complaint().toStdString(), testing::HasSubstr(path.toStdString() + " are damaged"));
    EXPECT_EQ(defaults.integerForKey(u"other"_s), 6) << "what can be read holds";
    EXPECT_EQ(bytesOf(path), damaged) << "reading changes nothing";
    defaults.set(u"level"_s, 7);
    EXPECT_EQ(bytesOf(path + u".kept1"_s), damaged);
    EXPECT_EQ(UserDefaults(path).integerForKey(u"other"_s), 6);
    EXPECT_EQ(UserDefaults(path).complaint(), QString()) << "the file is whole again";
    defaults.set(u"level"_s, 8);
    EXPECT_FALSE(QFile::exists(path + u".kept2"_s)) << "a whole file needs no copy";
}

TEST_F(Defaults, ACopyThatIsThereIsNeverWrittenOver)
{
    const QString path = directory_.filePath(u"settings.ini"_s);
    write(path + u".kept1"_s, "older");
    write(path, "no value\n");
    UserDefaults(path).set(u"level"_s, 7);
    EXPECT_EQ(bytesOf(path + u".kept1"_s), "older");
    EXPECT_EQ(bytesOf(path + u".kept2"_s), "no value\n");
}

TEST_F(Defaults, ADamagedFileThatCannotBeCopiedIsNotSavedTo)
{
    const QString path = directory_.filePath(u"settings.ini"_s);
    write(path, "no value\n");
    for (int number = 1; number <= 99; ++number)
        write(path + u".kept%1"_s.arg(number), "taken");
    UserDefaults defaults(path);
    defaults.set(u"level"_s, 7);
    EXPECT_EQ(bytesOf(path), "no value\n");
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 7);
    EXPECT_THAT(defaults.complaint().toStdString(), testing::HasSubstr("could not be saved"));
}

TEST_F(Defaults, RemarksOfAFileThatAPersonWroteAreKept)
{
    const QString path = directory_.filePath(u"settings.ini"_s);
    write(path, "; four cores here\n[General]\nmaxThreads=4\n");
    UserDefaults defaults(path);
    EXPECT_EQ(defaults.complaint(), QString());
    defaults.set(u"maxThreads"_s, 5);
    EXPECT_EQ(bytesOf(path + u".kept1"_s), "; four cores here\n[General]\nmaxThreads=4\n");
}

TEST_F(Defaults, AFileOfALaterVersionIsToldAndKeepsWhatThisOneDoesNotKnow)
{
    const QString path = directory_.filePath(u"settings.ini"_s);
    write(path, "[General]\nsettingsVersion=2\nmaxThreads=4\nnovelty=@Point(1 2)\n\n[rooms]\nnew=a, b\n");
    UserDefaults defaults(path);
    EXPECT_THAT(defaults.complaint().toStdString(), testing::HasSubstr("later version"));
    EXPECT_EQ(defaults.integerForKey(u"maxThreads"_s), 4);
    defaults.set(u"maxThreads"_s, 5);
    EXPECT_EQ(bytesOf(path), "[General]\nmaxThreads=5\nnovelty=@Point(1 2)\nsettingsVersion=2\n\n[rooms]\nnew=a, b\n");
    EXPECT_EQ(UserDefaults(path).integerForKey(settingsFile::versionKey), 2);
}

TEST_F(Defaults, AFileThatCannotBeReadIsToldAndLeftAlone)
{
    UserDefaults defaults(directory_.path()); // a folder
    EXPECT_THAT(defaults.complaint().toStdString(), testing::HasSubstr("could not be read"));
    defaults.set(u"level"_s, 7);
    EXPECT_EQ(defaults.integerForKey(u"level"_s), 7);
}

TEST_F(Defaults, ThatSavingFailedIsToldUntilItWorksAgain)
{
    const QString below = directory_.filePath(u"below"_s);
    write(below, {});
    UserDefaults defaults(path_);
    EXPECT_EQ(defaults.complaint(), QString());
    defaults.set(u"level"_s, 6);
    EXPECT_THAT(defaults.complaint().toStdString(), testing::HasSubstr("could not be saved to " + path_.toStdString()));
    QFile::remove(below);
    defaults.set(u"level"_s, 7);
    EXPECT_EQ(defaults.complaint(), QString());
}
