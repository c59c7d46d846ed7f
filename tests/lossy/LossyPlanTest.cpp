#include "LossyFixture.h"

#include "AudioSamples.h"
#include "lossy/LossyPlan.h"
#include "shell/Outlook.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class Plan : public LossyTest
{
protected:
    void list(const QStringList& files)
    {
        for (const QString& each : files)
            tab.addFile(each);
    }
    Outlook outlook() const
    {
        const std::atomic<bool> stop = false;
        return outlookOf(tab.workPlan(), LocalDisk(), stop);
    }
};

QString mp3(const QString& source)
{
    return lossyPlan::outputPath(source, u"/o"_s, true);
}

} // namespace

TEST_F(Plan, MP3sAreNamedAfterTheirSources)
{
    for (const auto* name : {"a.wav", "a.WAV", "a.aif", "a.aiff", "a.Aiff", "a.flac", "a.FLAC", "a.Flac", "a.shn",
                             "a.SHN", "a.wv", "a.tta", "a.m4a", "a.M4A"})
        EXPECT_EQ(mp3(QLatin1String(name)), u"/o/a.mp3"_s) << name;
}

TEST_F(Plan, AACFilesAreNamedAfterTheirSources)
{
    for (const auto* name : {"a.wav", "a.aif", "a.FLAC", "a.SHN"})
        EXPECT_EQ(lossyPlan::outputPath(QLatin1String(name), u"/o"_s, false), u"/o/a.m4a"_s);
}

TEST_F(Plan, SaysWhatWillBeMadeAndWithWhichTools)
{
    list({u"/s/a.wav"_s, u"/s/b.flac"_s, u"/s/c.shn"_s, u"/s/d.aif"_s});
    EXPECT_THAT(tab.toolsNeeded(), UnorderedElementsAre(u"shntool"_s, u"lame"_s, u"flac"_s, u"shorten"_s, u"sox"_s));
    EXPECT_EQ(tab.workPlan().words, u"4 AIF, FLAC, SHN and WAV files to MP3"_s);
    choose(lossyTitle::AAC, lossyTitle::VBR);
    EXPECT_THAT(tab.toolsNeeded(), UnorderedElementsAre(u"AtomicParsley"_s, u"flac"_s, u"shntool"_s, u"shorten"_s));
    EXPECT_EQ(tab.workPlan().words, u"4 AIF, FLAC, SHN and WAV files to AAC"_s);
    tab.clearFiles();
    list({u"/s/a.wav"_s});
    EXPECT_THAT(tab.toolsNeeded(), ElementsAre(u"AtomicParsley"_s));
}

TEST_F(Plan, AnExistingMP3IsRefusedAndAnExistingAACOverwritten)
{
    list({file(u"a.wav"_s)});
    file(u"a.mp3"_s);
    file(u"a.m4a"_s);
    EXPECT_THAT(outlook().sentences(), ElementsAre(u"a.mp3 exists already and will not be overwritten"_s));
    choose(lossyTitle::AAC, lossyTitle::CBR);
    EXPECT_THAT(outlook().sentences(), ElementsAre(u"a.m4a exists already and will be overwritten"_s));
}

TEST_F(Plan, SourcesThatTheAudioServiceAnswersForAreNamedForAACAlone)
{
    list({file(u"a.wv"_s), file(u"b.tta"_s), file(u"c.m4a"_s), file(u"d.wav"_s)});
    tab.setDestination(folder() + u"/"_s);
    tab.sourceEncodeButton->setState(false);
    const auto cautions = [this] {
        QStringList texts;
        for (const auto& problem : outlook().problems)
            if (problem.kind == OutlookProblem::Kind::Caution) texts += problem.text;
        return texts;
    };
    EXPECT_THAT(cautions(), IsEmpty());
    choose(lossyTitle::AAC, lossyTitle::CBR);
    tab.setDestination(u"/tmp"_s);
    EXPECT_THAT(cautions(),
                ElementsAre(u"Wavpack can't be turned into AAC, the audio service does not read it: decode it first"_s,
                            u"TTA can't be turned into AAC, the audio service does not read it: decode it first"_s,
                            u"Apple Lossless can't be turned into AAC as it is: decode it to WAV first"_s));
}

TEST_F(Plan, AnAACThatWouldReplaceItsOwnSourceIsNamedAndLeftOut)
{
    list({file(u"a.m4a"_s), file(u"b.wav"_s)});
    choose(lossyTitle::AAC, lossyTitle::CBR);
    const WorkPlan plan = tab.workPlan();
    EXPECT_THAT(plan.passedOver, ElementsAre(0));
    EXPECT_THAT(plan.cautions, ElementsAre(u"a.m4a would be written over itself and is left out"_s));
    ASSERT_EQ(plan.items.size(), 1u);
    EXPECT_EQ(plan.items[0].source, pathOf(u"b.wav"_s));
}

TEST_F(Plan, TwoSourcesForOneOutputAreSeen)
{
    list({file(u"a.wav"_s), file(u"a.flac"_s), file(u"a.aif"_s)});
    const Outlook seen = outlook();
    const auto* const collision = seen.problem(OutlookProblem::Kind::Collision);
    ASSERT_TRUE(collision);
    EXPECT_EQ(collision->rows.size(), 2);
    choose(lossyTitle::AAC, lossyTitle::CBR);
    const Outlook aac = outlook();
    EXPECT_EQ(aac.problem(OutlookProblem::Kind::Collision)->rows.size(), 2);
}

TEST_F(Plan, RoomIsReckonedForTheWavOnTheWay)
{
    list({u"/s/a.flac"_s, u"/s/b.wav"_s, u"/s/c.m4a"_s});
    const auto staged = [this] {
        std::vector<bool> all;
        for (const auto& item : tab.workPlan().items)
            all.push_back(item.staged);
        return all;
    };
    EXPECT_THAT(staged(), ElementsAre(false, false, true));
    choose(lossyTitle::AAC, lossyTitle::CBR);
    tab.setDestination(u"/o"_s);
    tab.sourceEncodeButton->setState(false);
    EXPECT_THAT(staged(), ElementsAre(true, false, false));
}

TEST_F(Plan, WhatTheOutputsWillTakeIsReckonedFromLengthAndRate)
{
    // Ten seconds of stereo and five of mono in 24 bits: fifteen of output.
    list({writeFile(pathOf(u"a.wav"_s), waveFile(makeSamples(44100, 2, 16, 441000))),
          writeFile(pathOf(u"b.wav"_s), waveFile(makeSamples(96000, 1, 24, 480000)))});
    const auto endsWith = [this](const QString& words) {
        const QString said = outlook().intention;
        EXPECT_TRUE(said.endsWith(words)) << said.toStdString();
    };
    tab.setComboLevel(192);
    endsWith(u"2 WAV files to MP3 beside their sources; about 360.0 kB in all"_s);
    tab.setComboLevel(1000);
    endsWith(u"; about 600.0 kB in all"_s); // lame takes 320
    choose(lossyTitle::MP3, lossyTitle::VBR);
    endsWith(u"; about 328.1 kB in all"_s);
    choose(lossyTitle::AAC, lossyTitle::ABR);
    tab.setComboLevel(64);
    endsWith(u"; about 120.0 kB in all"_s);
    choose(lossyTitle::AAC, lossyTitle::VBR);
    endsWith(u"to AAC beside their sources"_s); // its encoder decides
}

TEST_F(Plan, AFileThatDoesNotTellItsLengthIsTakenForAUsualOne)
{
    list({file(u"a.shn"_s, QByteArray(1100000, 'x'))});
    tab.setComboLevel(128);
    const QString said = outlook().intention;
    EXPECT_TRUE(said.endsWith(u"; about 160.0 kB in all"_s)) << said.toStdString();
}

TEST_F(Plan, OtherKindsArePassedOver)
{
    list({u"/s/a.ape"_s});
    EXPECT_THAT(tab.workPlan().passedOver, ElementsAre(0));
    EXPECT_EQ(tab.workPlan().words, u"Nothing in the list can be encoded"_s);
}
