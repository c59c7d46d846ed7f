#include "shell/ZOLTStringGetterPanel.h"

#include "platform/desktop/Interfaces.h"
#include "platform/errors/Exceptions.h"
#include "support/LogCapture.h"
#include "support/ScriptedPanels.h"
#include "support/test.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class StringGetter : public testing::Test
{
protected:
    void SetUp() override
    {
        installInterface(u"StringGetterPanel"_s, [this](void* owner) {
            EXPECT_EQ(owner, &getter_);
            getter_.panel()->setTitle(u"the interface's title"_s);
            ++loads_;
        });
    }
    void TearDown() override { installInterface(u"StringGetterPanel"_s, {}); }

    /// A person who types the texts, one after the other, and presses OK or Cancel.
    void answer(const QStringList& typed, bool ok)
    {
        scripted_.answerModal([this, typed, ok](Window& window) {
            EXPECT_TRUE(window.isVisible());
            for (const QString& text : typed) {
                getter_.textField->setStringValue(text);
                getter_.textField->performAction();
            }
            if (ok) {
                getter_.ok(nullptr);
            } else {
                getter_.cancel(nullptr);
            }
        });
    }

    OptionalText run(const OptionalText& message, const OptionalText& initial)
    {
        return getter_.runPanelWithTitleMessageInitialString(u"a title"_s, message, initial);
    }

    int loads_ = 0;
    test::ScriptedPanels scripted_;
    ZOLTStringGetterPanel getter_;
};

class FaultyGetter : public ZOLTStringGetterPanel
{
public:
    void setEnteredText(const OptionalText&) override { throw RangeException(u"no such text"_s); }
};

} // namespace

TEST_F(StringGetter, OkWithAnUnchangedFieldReturnsTheInitialText)
{
    answer({}, true);
    EXPECT_EQ(run(u"Batch name"_s, u"first"_s), u"first"_s);
    EXPECT_EQ(getter_.messageText->stringValue(), u"Batch name"_s);
    EXPECT_EQ(getter_.textField->stringValue(), u"first"_s);
}

TEST_F(StringGetter, OkReturnsWhatWasTyped)
{
    answer({u"s"_s, u"sh"_s, u"sho"_s}, true);
    EXPECT_EQ(run(u"m"_s, u"first"_s), u"sho"_s);
    EXPECT_EQ(getter_.enteredText(), u"sho"_s);
}

TEST_F(StringGetter, CancelReturnsNothing)
{
    answer({u"typed"_s}, false);
    EXPECT_FALSE(run(u"m"_s, u"first"_s));
    EXPECT_EQ(getter_.enteredText(), u"typed"_s);
}

TEST_F(StringGetter, AnEmptyTextIsATextAndNoneAtAllIsNone)
{
    answer({}, true);
    EXPECT_FALSE(run(std::nullopt, std::nullopt));
    answer({QString()}, true);
    EXPECT_EQ(run(std::nullopt, u"x"_s), OptionalText(QString()));
}

TEST_F(StringGetter, TheTitleGivenHasNoEffect)
{
    answer({}, true);
    run(u"m"_s, u"x"_s);
    EXPECT_EQ(getter_.panel()->title(), u"the interface's title"_s);
}

TEST_F(StringGetter, RunsAgainWithTheInterfaceLoadedOnceAndTheTextKept)
{
    EXPECT_FALSE(getter_.panel());
    answer({u"kept"_s}, true);
    run(u"first message"_s, u"x"_s);
    answer({}, true);
    EXPECT_EQ(run(std::nullopt, std::nullopt), u"kept"_s);
    EXPECT_EQ(getter_.message(), u"first message"_s);
    EXPECT_EQ(loads_, 1);
    EXPECT_FALSE(getter_.panel()->isVisible());
}

TEST_F(StringGetter, ACancelAfterAnOkDoesNotReturnTheOkOfBefore)
{
    answer({}, true);
    run(u"m"_s, u"x"_s);
    answer({}, false);
    EXPECT_FALSE(run(u"m"_s, u"y"_s));
}

TEST_F(StringGetter, AFaultWhileTypingIsLoggedAndGoesNoFurther)
{
    const test::LogCapture log;
    FaultyGetter faulty;
    const TextField field;
    EXPECT_NO_THROW(faulty.controlTextDidChange(&field));
    EXPECT_EQ(log.count(u"ex no such text"_s), 1);
}

TEST_F(StringGetter, AChangeOfNoFieldLeavesNoText)
{
    getter_.setEnteredText(u"x"_s);
    getter_.controlTextDidChange(nullptr);
    EXPECT_FALSE(getter_.enteredText());
}
