#include "shell/DefaultSettings.h"

#include "support/test.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class DefaultSettings : public testing::Test
{
protected:
    QTemporaryDir directory_;
    QString path_ = directory_.filePath(u"settings.ini"_s);
};

} // namespace

TEST_F(DefaultSettings, OnAFirstStartEveryKeyHasItsDefault)
{
    UserDefaults defaults(path_);
    registerDefaultSettings(defaults);
    EXPECT_EQ(defaults.stringForKey(u"shntoolNamesFormat"_s), u"%number. %name %time"_s);
    const std::map<QString, int> numbers{
        {u"maxThreads"_s, 2},         {u"encodeOutputFormat"_s, 2},  {u"encodeFlacLevel"_s, 5},
        {u"fixOutputFormat"_s, 1},    {u"fixFlacLevel"_s, 4},        {u"shntoolCommandOption"_s, 0},
        {u"shntoolLenOption"_s, 0},   {u"shntoolOutputFormat"_s, 1}, {u"lossySliderLevel"_s, 3},
        {u"lossyStepperLevel"_s, 88}, {u"lossyComboLevel"_s, 160},   {u"SUScheduledCheckInterval"_s, 604800},
        {u"trashOrDelete"_s, 0},
    };
    for (const auto& [key, value] : numbers) {
        ASSERT_TRUE(defaults.objectForKey(key)) << key.toStdString();
        EXPECT_EQ(defaults.integerForKey(key), value) << key.toStdString();
    }
}

TEST_F(DefaultSettings, ASavedValueStandsAboveTheDefaultOfItsKey)
{
    UserDefaults(path_).set(u"maxThreads"_s, 8);
    UserDefaults defaults(path_);
    registerDefaultSettings(defaults);
    EXPECT_EQ(defaults.integerForKey(u"maxThreads"_s), 8);
    EXPECT_EQ(defaults.integerForKey(u"encodeFlacLevel"_s), 5);
}
