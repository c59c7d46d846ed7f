#include "shntool/ShntoolPlan.h"
#include "SampleShow.h"
#include "shell/Constants.h"

#include <QTemporaryDir>

using namespace zolt;
using namespace zolt::test;

namespace {

using C = Constants;

class ShntoolPlan : public testing::Test
{
protected:
    QString in(const QString& name) const { return folder_.filePath(name); }
    WorkPlan planOf(const QString& command, const QStringList& files, const OptionalText& folder = u"/out"_s) const
    {
        WorkPlan plan;
        plan.files = files;
        shntoolPlan::plan(plan, command, u"flac"_s, folder);
        return plan;
    }
    QStringList foundIn(const QString& command, const QStringList& files, const OptionalText& folder = u"/out"_s) const
    {
        const WorkPlan plan = planOf(command, files, folder);
        QStringList found;
        const std::atomic<bool> stop = false;
        for (const WorkCaution& caution : plan.inspect(plan, stop)) {
            QStringList rows;
            for (const qsizetype row : caution.rows)
                rows += QString::number(row);
            found += rows.join(u',') + u": "_s + caution.text;
        }
        return found;
    }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(ShntoolPlan, NamesOutputsAsTheToolDoes)
{
    const auto nameOf = [this](const QString& file) {
        return path::lastComponent(planOf(C::TRIM, {file}).items.at(0).outputs.at(0));
    };
    EXPECT_EQ(nameOf(u"/s/a.wav"_s), u"a-trimmed.flac"_s);
    EXPECT_EQ(nameOf(u"/s/a.b.flac"_s), u"a.b-trimmed.flac"_s);
    for (const QString& known : {u"wav"_s, u"aiff"_s, u"flac"_s, u"shn"_s, u"wv"_s, u"tta"_s, u"ape"_s})
        EXPECT_EQ(nameOf(u"/s/a."_s + known), u"a-trimmed.flac"_s) << known.toStdString();
    EXPECT_EQ(nameOf(u"/s/a.aif"_s), u"a.aif-trimmed.flac"_s);
    EXPECT_EQ(nameOf(u"/s/A.WAV"_s), u"A.WAV-trimmed.flac"_s);
    EXPECT_EQ(planOf(C::TRIM, {u"/s/A.WAV"_s}).cautions,
              QStringList({u"Endings in capitals and .aif become part of the name: A.WAV-trimmed.flac"_s}));
    EXPECT_TRUE(planOf(C::TRIM, {u"/s/a.wav"_s}).cautions.isEmpty());
    EXPECT_EQ(planOf(C::TRIM, {u"/s/a.wav"_s}, std::nullopt).items.at(0).outputs, QStringList({u"a-trimmed.flac"_s}));
}

TEST_F(ShntoolPlan, NeedsTheToolsThatShntoolCalls)
{
    EXPECT_EQ(
        planOf(C::LEN, {u"/s/a.shn"_s, u"/s/b.wv"_s, u"/s/c.tta"_s, u"/s/d.ape"_s, u"/s/e.aif"_s, u"/s/f.wav"_s}).tools,
        QStringList({u"shntool"_s, u"shorten"_s, u"wvunpack"_s, u"ttaenc"_s, u"mac"_s, u"sox"_s}));
    EXPECT_EQ(planOf(C::JOIN, {u"/s/a.wav"_s, u"/s/b.wav"_s}).tools, QStringList({u"shntool"_s, u"flac"_s}));
}

TEST_F(ShntoolPlan, TellsCountsThatACommandIsNotFor)
{
    EXPECT_EQ(planOf(C::CMP, {u"/a.wav"_s}).cautions,
              QStringList({u"cmp is for two files; there are 1 in the list"_s}));
    EXPECT_TRUE(planOf(C::CMP, {u"/a.wav"_s, u"/b.wav"_s}).cautions.isEmpty());
    EXPECT_EQ(planOf(C::JOIN, {u"/a.wav"_s}).cautions, QStringList({u"One file alone cannot be joined"_s}));
    EXPECT_EQ(planOf(C::SPLIT, {u"/a.wav"_s, u"/b.wav"_s}).cautions,
              QStringList({u"Only a.wav is split; the other files leave the list"_s}));
}

TEST_F(ShntoolPlan, FindsWhatHasNoSectors)
{
    const QStringList files{tone(in(u"cd.wav"_s), 589), tone(in(u"x.wav"_s), 588, 48000), tone(in(u"on.wav"_s), 588)};
    const QString other = u"1: What is not 44.1 kHz, 16 bits and stereo has no CD sectors: shntool declines it"_s;
    EXPECT_EQ(foundIn(C::CUE, files), QStringList({other}));
    EXPECT_EQ(foundIn(C::FIX, files), QStringList({other}));
    EXPECT_EQ(
        foundIn(C::FIX, {files[2]}),
        QStringList({u"0: Every file ends on a sector boundary: shntool declines, as there is nothing to fix"_s}));
    EXPECT_EQ(foundIn(C::PAD, files),
              QStringList({other, u"2: What ends on a sector boundary needs no padding: shntool declines it"_s}));
}

TEST_F(ShntoolPlan, FindsWhatHasNothingToStrip)
{
    const QString plain = tone(in(u"plain.wav"_s), 588), extra = tone(in(u"extra.wav"_s), 588);
    QFile file(extra);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll() + QByteArray("LIST\4\0\0\0abcd", 12);
    bytes[4] = char(bytes[4] + 12);
    file.seek(0);
    file.write(bytes);
    file.close();
    const QStringList found = foundIn(C::STRIP, {plain, extra, u"/s/x.flac"_s, tone(in(u"deep.wav"_s), 588, 44100, 24),
                                                 tone(in(u"odd.wav"_s), 589, 44100, 8, 1)});
    EXPECT_EQ(found,
              QStringList(
                  {u"0,2,4: What has a plain header and no extra chunks has nothing to strip: shntool declines it"_s}));
}

TEST_F(ShntoolPlan, FindsPiecesOfAnEarlierSplit)
{
    const QString source = tone(in(u"a.wav"_s), 588);
    QDir(in(QString())).mkpath(u"out"_s);
    tone(in(u"out/split-second.wav"_s), 588);
    EXPECT_TRUE(foundIn(C::SPLIT, {source}, in(u"out"_s)).isEmpty());
    tone(in(u"out/split-track01.wav"_s), 588);
    const QStringList found = foundIn(C::SPLIT, {source}, in(u"out"_s));
    ASSERT_EQ(found.size(), 1);
    EXPECT_TRUE(found[0].contains(u"split-track01.wav already"_s));
    EXPECT_TRUE(foundIn(C::SPLIT, {source}, std::nullopt).isEmpty());
}

TEST_F(ShntoolPlan, FindsAudioThatACueSheetIsNotFor)
{
    const QStringList found = foundIn(C::SPLIT, {tone(in(u"x.wav"_s), 588, 48000)}, std::nullopt);
    ASSERT_EQ(found.size(), 1);
    EXPECT_TRUE(found[0].startsWith(u"0: A cue sheet's places are for 44.1 kHz"_s));
}

TEST_F(ShntoolPlan, EveryCommandSaysWhatItDoes)
{
    for (const QString& command : {C::LEN, C::INFO, C::CMP, C::TRIM, C::SPLIT, C::JOIN, C::CUE, C::PAD, C::STRIP}) {
        EXPECT_GT(shntoolPlan::aboutCommand(command).size(), 30) << command.toStdString();
        EXPECT_FALSE(planOf(command, {u"/a.wav"_s, u"/b.wav"_s}).words.contains(u'%')) << command.toStdString();
    }
}
