#include "tags/ZOLTCustomTagsPanel.h"

#include "platform/desktop/Interfaces.h"
#include "support/ScriptedPanels.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

CustomTags manyTags(int count)
{
    CustomTags tags;
    for (int i = 0; i < count; ++i)
        tags.insert(u"KEY%1"_s.arg(i), u"value %1"_s.arg(i));
    return tags;
}

} // namespace

TEST(CustomTags, ThePanelTakesWhatStandsInItHoweverItIsClosed)
{
    ScriptedPanels panels;
    ZOLTCustomTagsPanel custom;
    EXPECT_FALSE(custom.customTagDictionary());
    panels.answerModal([&](Window& window) {
        EXPECT_TRUE(window.isVisible());
        custom.setValueValueCount(u" MOOD "_s, u"\tcalm\n"_s, 3);
        custom.windowWillClose();
    });
    custom.runPanel();
    EXPECT_FALSE(custom.panel()->isVisible());
    EXPECT_EQ(custom.customTagDictionary(), (CustomTags{{QString(), QString()}, {u"MOOD"_s, u"calm"_s}}));
    EXPECT_EQ(custom.nameText(3)->stringValue(), u" MOOD "_s) << "the controls keep their white space";
}

TEST(CustomTags, TheInterfaceIsLoadedOnce)
{
    ScriptedPanels panels;
    ZOLTCustomTagsPanel custom;
    int loads = 0;
    installInterface(u"CustomTagsPanel"_s, [&](void* owner) { loads += owner == &custom; });
    for (int i = 0; i < 2; ++i) {
        panels.answerModal([&](Window&) { custom.stop(nullptr); });
        custom.runPanel();
    }
    installInterface(u"CustomTagsPanel"_s, {});
    EXPECT_EQ(loads, 1);
}

TEST(CustomTags, AllEightPairsAreStoredAndALaterNameWins)
{
    ZOLTCustomTagsPanel custom;
    for (int count = 1; count <= 8; ++count)
        custom.setValueValueCount(count < 7 ? u"N%1"_s.arg(count) : u"SAME"_s, QString::number(count), count);
    custom.fillTagsDictionary();
    EXPECT_EQ(custom.customTagDictionary()->size(), 7);
    EXPECT_EQ(custom.customTagDictionary()->value(u"SAME"_s), u"8"_s);
    custom.setValueValueCount(QString(), u"nameless"_s, 1);
    custom.fillTagsDictionary();
    EXPECT_EQ(custom.customTagDictionary()->value(QString()), u"nameless"_s);
}

TEST(CustomTags, OfTenPairsEightAreShownAndTheOthersStandUntilTheTextsAreTaken)
{
    ZOLTCustomTagsPanel custom;
    custom.fillTags(std::nullopt);
    EXPECT_FALSE(custom.customTagDictionary());
    custom.fillTags(manyTags(10));
    EXPECT_EQ(custom.customTagDictionary()->size(), 10);
    EXPECT_EQ(custom.nameText(8)->stringValue(), u"KEY7"_s);
    custom.fillTagsDictionary();
    EXPECT_EQ(custom.customTagDictionary(), manyTags(8));
}

TEST(CustomTags, PairsThatAreShownAreAddedToTheDictionary)
{
    ZOLTCustomTagsPanel custom;
    custom.fillTags(CustomTags{{u"MOOD"_s, u"calm"_s}, {u"TAPE"_s, u"DAT"_s}});
    custom.fillTags(CustomTags{{u"MOOD"_s, u"wild"_s}});
    EXPECT_EQ(custom.customTagDictionary(), (CustomTags{{u"MOOD"_s, u"wild"_s}, {u"TAPE"_s, u"DAT"_s}}));
}

TEST(CustomTags, ClearingEmptiesTheTextsAndKeepsTheDictionary)
{
    ZOLTCustomTagsPanel custom;
    custom.fillTags(manyTags(2));
    custom.clearTags();
    EXPECT_EQ(custom.valueText(1)->stringValue(), QString());
    EXPECT_EQ(custom.customTagDictionary(), manyTags(2));
    custom.fillTagsDictionary();
    EXPECT_EQ(custom.customTagDictionary(), (CustomTags{{QString(), QString()}}));
}

TEST(CustomTags, CountsOutsideTheEightDoNothing)
{
    ZOLTCustomTagsPanel custom;
    for (const int count : {0, 9, -1})
        custom.setValueValueCount(u"N"_s, u"v"_s, count);
    custom.fillTagsDictionary();
    EXPECT_EQ(custom.customTagDictionary()->size(), 1);
    EXPECT_EQ(custom.stringValue(std::nullopt), QString());
    EXPECT_EQ(custom.stringValue(u" \n a b\t"_s), u"a b"_s);
}
