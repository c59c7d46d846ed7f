#include "ShntoolFixture.h"
#include "engine/ZOLTTaskQueue.h"
#include "shell/Constants.h"
#include "shntool/SHNToolLenTask.h"
#include "support/EventLoop.h"
#include "support/EveryCut.h"
#include "support/FakeTool.h"
#include "support/QueueRun.h"

#include <QCoreApplication>

using namespace zolt;
using namespace zolt::test;

namespace {

using C = Constants;

const QString headings = u"    length     expanded size    cdr  WAVE problems  fmt   ratio  filename\n"_s;

QString track(const QString& time, const QString& path)
{
    return u"     %1      123456 B   ---   --   ---xx   flac  0.5000  %2\n"_s.arg(time, path);
}

QString total(const QString& time)
{
    return u"     %1      123456 B                            0.5000  (2 files)\n"_s.arg(time);
}

const QString table = headings + track(u"3:25.41"_s, u"/s/d1t01.flac"_s) + track(u"12:00.10"_s, u"/s/d1t02.flac"_s) +
                      total(u"15:25.51"_s);

class LenReport : public testing::Test
{
protected:
    std::shared_ptr<SHNToolLenTask> made(const QString& type, const QString& text = table) const
    {
        auto task =
            unqueued(SHNToolLenTask::initWithQueueLaunchPathArgumentsLenType(nullptr, fakeTool(), {u"len"_s}, type));
        task->processTaskOutput(text);
        return task;
    }
    QString report(const QString& text, const QStringList& names = {}, int width = 0) const
    {
        const auto task = made(C::LEN_BY_FILESET, text);
        if (!names.isEmpty()) task->setTrackNames(names);
        task->setMaxTrackNameLength(width);
        return task->lenByFileSetOutput();
    }

    RegisteredSettings settings_;
};

} // namespace

TEST_F(LenReport, NormalOneIsTheTableWithNamesInPlaceOfPaths)
{
    EXPECT_EQ(made(C::NORMAL_LEN_OUTPUT)->normalSHNLenOutput(), headings + track(u"3:25.41"_s, u"d1t01.flac"_s) +
                                                                    track(u"12:00.10"_s, u"d1t02.flac"_s) +
                                                                    total(u"15:25.51"_s));
    EXPECT_EQ(made(C::NORMAL_LEN_OUTPUT, u"/first/line\n/a/b"_s)->normalSHNLenOutput(), u"/first/line\nb"_s);
    EXPECT_EQ(made(C::NORMAL_LEN_OUTPUT, QString())->normalSHNLenOutput(), QString());
}

TEST_F(LenReport, OfASetHasNumbersNamesTimesAndTheTotal)
{
    EXPECT_EQ(report(table, {u"Intro"_s, u"Jam"_s}, 5),
              u"01. Intro  03:25.41\n02. Jam    12:00.10\n\nTotal: 15:25.51\n \n\n"_s);
}

TEST_F(LenReport, WithoutNamesTakesThoseOfTheFilesAndNoFormat)
{
    RegisteredSettings::setFormat(u"%time x"_s);
    EXPECT_EQ(report(table), u"01 d1t01.flac 03:25.41\n02 d1t02.flac 12:00.10\n\nTotal: 15:25.51\n \n\n"_s);
}

TEST_F(LenReport, NamesThatAreTooFewLeaveTheFilesOwn)
{
    EXPECT_EQ(report(table, {u"Intro"_s}, 10),
              u"01. Intro       03:25.41\n02. d1t02.flac  12:00.10\n\nTotal: 15:25.51\n \n\n"_s);
}

TEST_F(LenReport, NameThatIsLongerThanTheColumnIsCut)
{
    EXPECT_EQ(report(headings + track(u"1:00"_s, u"/a.wav"_s), {u"Introduction"_s}, 4),
              u"01. Intro 01:00\n\nTotal: \n \n\n"_s);
}

TEST_F(LenReport, ColumnGrowsWithEachCall)
{
    const auto task = made(C::LEN_BY_FILESET, headings + track(u"1:00"_s, u"/a.wav"_s));
    task->setTrackNames({u"A"_s});
    task->setMaxTrackNameLength(1);
    EXPECT_EQ(task->lenByFileSetOutput(), u"01. A  01:00\n\nTotal: \n \n\n"_s);
    EXPECT_EQ(task->lenByFileSetOutput(), u"01. A   01:00\n\nTotal: \n \n\n"_s);
}

TEST_F(LenReport, TracksFromTheTenthOnAreNumberedWithoutAZero)
{
    QString text = headings;
    QStringList names;
    for (int i = 1; i <= 10; ++i) {
        text += track(u"1:00"_s, u"/%1.wav"_s.arg(i));
        names += QString(QChar(u'a' + i));
    }
    const QString with = report(text, names, 1), without = report(text);
    EXPECT_TRUE(with.contains(u"09. j  01:00\n10. k  01:00\n"_s)) << with.toStdString();
    EXPECT_TRUE(without.contains(u"09 9.wav 01:00\n10 10.wav 01:00\n"_s)) << without.toStdString();
}

TEST_F(LenReport, OneDigitOfMinutesAloneIsWidened)
{
    const auto shown = [this](const QString& time) {
        return report(headings + track(time, u"/a"_s)).split(u' ').at(2).split(u'\n').first();
    };
    EXPECT_EQ(shown(u"3:45.67"_s), u"03:45.67"_s);
    EXPECT_EQ(shown(u"123:45.67"_s), u"123:45.67"_s);
    EXPECT_EQ(shown(u"45"_s), u"45"_s);
}

TEST_F(LenReport, LineWithoutANumberKeepsTheTimeBefore)
{
    EXPECT_EQ(report(headings + u"1:00 /a\nno number /b\nneither\n"_s),
              u"01 a 01:00\n02 b 01:00\n\nTotal: 01:00\n \n\n"_s);
}

TEST_F(LenReport, LaterTotalReplacesAnEarlierOneAndBlanksNone)
{
    EXPECT_EQ(report(headings + u"1:00 /a\n 2:00 one\n 3:00 two\n   \n"_s), u"01 a 01:00\n\nTotal: 03:00\n \n\n"_s);
}

TEST_F(LenReport, BlankLineIsNoTotalAlsoBehindATrack)
{
    EXPECT_EQ(report(headings + u"2:00 one\n1:00 /a\n   \n"_s), u"01 a 01:00\n\nTotal: 02:00\n \n\n"_s);
}

TEST_F(LenReport, NamesAreDealtByLineWhateverTheLineIs)
{
    EXPECT_EQ(report(headings + u"1:00 warning\n2:00 /b\n"_s, {u"A"_s, u"B"_s}, 1),
              u"01. B  02:00\n\nTotal: 01:00\n \n\n"_s);
}

TEST_F(LenReport, OfADiscSaysWhich)
{
    const auto task = made(C::LEN_BY_DISC);
    task->setDiscNumber(u"2"_s);
    EXPECT_EQ(task->lenByFileSetOutput(),
              u"Disc 2\n\n01 d1t01.flac 03:25.41\n02 d1t02.flac 12:00.10\n\nDisc 2 Total: 15:25.51\n \n\n"_s);
}

TEST_F(LenReport, OfNothingIsAnEmptyTable)
{
    EXPECT_EQ(report(QString()), u"\nTotal: \n \n\n"_s);
}

TEST_F(LenReport, IsTheSameWhereverAReadParts)
{
    const QString names = QString(table).replace(u"d1t02"_s, u"d1t02 Ночь ü 🎶"_s);
    everyCut(names.toUtf8(), [&](const QList<QByteArray>& pieces) {
        const auto task = made(C::LEN_BY_FILESET, QString());
        feed(*task, pieces);
        EXPECT_EQ(task->lenByFileSetOutput(), report(names));
    });
}

TEST_F(LenReport, StandsInTheTasksOwnSlotAtTheEnd)
{
    for (const QString& type : {C::NORMAL_LEN_OUTPUT, C::LEN_BY_FILESET, C::LEN_BY_DISC, u"other"_s}) {
        const auto task = made(type);
        const QString expected = type == u"other"_s             ? QString()
                                 : type == C::NORMAL_LEN_OUTPUT ? made(type)->normalSHNLenOutput()
                                                                : made(type)->lenByFileSetOutput();
        task->stopTask(nullptr);
        EXPECT_EQ(task->results()->results(), expected + u'\n') << type.toStdString();
        EXPECT_TRUE(task->isDone());
    }
}

TEST_F(LenReport, StandsTwiceAfterTwoStops)
{
    const auto task = made(C::NORMAL_LEN_OUTPUT, u"x"_s);
    task->cancelTask(nullptr);
    task->stopTask(nullptr);
    EXPECT_EQ(task->results()->results(), u"xx\n"_s);
}

TEST_F(LenReport, OfACancelledRunHoldsWhatWasGatheredTwiceTheSecondOneColumnWider)
{
    const QTemporaryDir folder;
    const QString go = folder.filePath(u"go"_s);
    ZOLTTaskQueue queue;
    const auto task = SHNToolLenTask::initWithQueueLaunchPathArgumentsLenType(
        &queue, fakeTool(), {u"out"_s, headings, u"out"_s, track(u"1:00"_s, u"/a.wav"_s), u"wait-file"_s, go},
        C::LEN_BY_FILESET);
    task->setTrackNames({u"A"_s});
    task->setMaxTrackNameLength(1);
    const auto results = task->results();
    queue.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->lenByFileSetOutput().contains(u"01. A"_s); }));
    task->setMaxTrackNameLength(1);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { touch(go); }, Qt::QueuedConnection);
    task->cancelTask(nullptr);
    ASSERT_TRUE(runToEnd(queue));
    EXPECT_EQ(results->results(), u"01. A  01:00\n\nTotal: \n \n\n01. A   01:00\n\nTotal: \n \n\n\n"_s);
}

TEST_F(LenReport, EmptyFormatEndsTheRowWithItsReason)
{
    RegisteredSettings::setFormat(QString());
    const auto task = made(C::LEN_BY_FILESET);
    task->stopTask(nullptr);
    EXPECT_TRUE(task->isDone());
    EXPECT_TRUE(task->error());
    EXPECT_FALSE(task->results()->results().trimmed().isEmpty());
}

TEST_F(LenReport, RowSaysRunningOnceItRuns)
{
    ZOLTTaskQueue queue;
    const auto task = SHNToolLenTask::initWithQueueLaunchPathArgumentsLenType(&queue, fakeTool(), {u"out"_s, u"x"_s},
                                                                              C::NORMAL_LEN_OUTPUT);
    EXPECT_EQ(task->textField()->stringValue(), u"Running shntool LEN"_s);
    EXPECT_EQ(task->title(), u"Running shntool LEN"_s);
    queue.addTask(task);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Running"_s);
    EXPECT_TRUE(task->progressIndicator()->isIndeterminate());
    EXPECT_TRUE(task->progressIndicator()->isAnimating());
    ASSERT_TRUE(runToEnd(queue));
}
