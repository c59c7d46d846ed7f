#include "platform/desktop/Interfaces.h"
#include "platform/errors/Exceptions.h"
#include "shntool/TrackNameInputController.h"
#include "shntool/ZOLTTrimCharsPanel.h"
#include "support/ScriptedPanels.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// A person who types a number, chooses an end and presses OK or Cancel.
class TrimChars : public testing::Test
{
protected:
    TrimChars()
    {
        installInterface(u"TrimCharsPanel"_s, [this](void* owner) { panel = static_cast<ZOLTTrimCharsPanel*>(owner); });
    }
    ~TrimChars() override { installInterface(u"TrimCharsPanel"_s, {}); }

    void answer(const std::optional<QString>& typed, int column, bool ok)
    {
        panels.answerModal([this, typed, column, ok](Window& window) {
            EXPECT_TRUE(window.isVisible());
            if (typed) panel->numberField->enterText(*typed);
            panel->positionMatrix->selectIndex(column);
            ok ? panel->ok(nullptr) : panel->cancel(nullptr);
        });
    }

    QString cut(const QString& text, TextSelection selection, const QString& number, int column)
    {
        names.inputText->setString(text);
        names.inputText->setSelectedRange(selection);
        answer(number, column, true);
        names.removeCharactersFromText(nullptr);
        return names.namesText();
    }

    ScriptedPanels panels;
    ZOLTTrimCharsPanel* panel = nullptr;
    TrackNameInputController names;
};

} // namespace

TEST_F(TrimChars, PanelGivesWhatWasChosen)
{
    ZOLTTrimCharsPanel asked;
    answer(u"12"_s, 1, true);
    const auto chosen = asked.runPanel();
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->number(), 12);
    EXPECT_EQ(chosen->position(), 1);
    EXPECT_FALSE(asked.panel()->isVisible());
    answer(std::nullopt, 0, true);
    EXPECT_EQ(asked.runPanel()->number(), 12) << "the number stays from run to run";
    answer(u"5"_s, 0, false);
    EXPECT_FALSE(asked.runPanel());
}

TEST_F(TrimChars, ANumberThatWasNeverEditedCountsAsZero)
{
    ZOLTTrimCharsPanel asked;
    asked.numberField->setStringValue(u"7"_s); // as an interface may bring it
    answer(std::nullopt, 0, true);
    EXPECT_EQ(asked.runPanel()->number(), 0);
}

TEST_F(TrimChars, CharactersGoFromTheStartOrTheEndOfTheSelectedLines)
{
    EXPECT_EQ(cut(u"abcdef\nghijkl\nmno"_s, {0, 13}, u"2"_s, 0), u"cdef\nijkl\nmno"_s);
    EXPECT_EQ(cut(u"abcdef\nghijkl\nmno"_s, {0, 13}, u"2"_s, 1), u"abcd\nghij\nmno"_s);
    EXPECT_EQ(names.undoManager().undoActionName(), u"Trim Text"_s);
    names.undoManager().undo();
    EXPECT_EQ(names.namesText(), u"abcdef\nghijkl\nmno"_s);
}

TEST_F(TrimChars, LinesThatAreShorterGoWhole)
{
    EXPECT_EQ(cut(u"abcdef\nxy\nghi"_s, {0, 13}, u"3"_s, 0), u"def\n\n"_s);
    EXPECT_EQ(cut(u"abc\n\nabc\n"_s, {0, 9}, u"1"_s, 0), u"bc\nbc\n"_s);
}

TEST_F(TrimChars, OneLineEndBehindTheSelectionGoes)
{
    EXPECT_EQ(cut(u"keep\nabc\n\nrest"_s, {5, 3}, u"1"_s, 0), u"keep\nbc\n\nrest"_s);
    EXPECT_EQ(cut(u"abcrest"_s, {0, 3}, u"1"_s, 0), u"bc\nrest"_s);
}

TEST_F(TrimChars, NothingHappensWithoutASelectionANumberOrAnOk)
{
    EXPECT_EQ(cut(u"abc"_s, {1, 0}, u"1"_s, 0), u"abc"_s);
    EXPECT_EQ(cut(u"abc"_s, {0, 3}, u"0"_s, 0), u"abc"_s);
    EXPECT_EQ(cut(u"abc"_s, {0, 3}, u"many"_s, 0), u"abc"_s);
    answer(u"1"_s, 0, false);
    names.removeCharactersFromText(nullptr);
    EXPECT_EQ(names.namesText(), u"abc"_s);
    EXPECT_FALSE(names.undoManager().canUndo());
}

TEST_F(TrimChars, ANumberBelowZeroIsOutOfRange)
{
    EXPECT_THROW(cut(u"abc"_s, {0, 3}, u"-1"_s, 0), RangeException);
    EXPECT_EQ(names.namesText(), u"abc"_s);
}
