#include "app/batch/BatchOptions.h"

using namespace zolt::batch;
using namespace Qt::StringLiterals;

namespace {

const std::vector<CommandSyntax>& commands()
{
    static const std::vector<CommandSyntax> table{
        {u"turn"_s,
         u"turns"_s,
         {{u"format"_s, u"FORMAT"_s, {u"WAV"_s, u"AIFF"_s}, u"format"_s},
          {u"out"_s, u"DIR"_s, {}, u"where"_s},
          {u"hard"_s, {}, {}, u"hard"_s}}},
        {u"sum test"_s,
         u"tests sums"_s,
         {{u"deep"_s, {}, {}, u"deep"_s},
          {u"kind"_s, u"KIND"_s, {u"ONE"_s, u"ANOTHER"_s, u"A-THIRD"_s, u"A-FOURTH"_s}, u"which"_s}}},
        {u"sum make"_s, u"makes sums"_s, {}, false},
    };
    return table;
}

BatchOptions parse(const QStringList& arguments)
{
    return parseOptions(arguments, commands());
}

QString complaint(const QStringList& arguments)
{
    try {
        parse(arguments);
    } catch (const UsageError& fault) {
        return fault.text;
    }
    return {};
}

} // namespace

TEST(BatchOptions, OptionsAndFilesStandInAnyOrder)
{
    const BatchOptions options = parse({u"turn"_s, u"a"_s, u"--out"_s, u"d"_s, u"b"_s, u"--hard"_s, u"--jobs=3"_s});
    EXPECT_EQ(options.command, u"turn"_s);
    EXPECT_EQ(options.files, (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(options.value(u"out"_s), u"d"_s);
    EXPECT_EQ(options.value(u"jobs"_s), u"3"_s);
    EXPECT_TRUE(options.has(u"hard"_s));
    EXPECT_FALSE(options.has(u"yes"_s));
}

TEST(BatchOptions, ANameMayHaveSeveralWords)
{
    const BatchOptions options = parse({u"sum"_s, u"--jobs=2"_s, u"test"_s, u"--deep"_s, u"test"_s});
    EXPECT_EQ(options.command, u"sum test"_s);
    EXPECT_EQ(options.files, QStringList{u"test"_s});
    EXPECT_TRUE(options.has(u"deep"_s));
    EXPECT_EQ(complaint({u"sum"_s}), u"sum what? One of sum test, sum make"_s);
    EXPECT_EQ(complaint({u"sum"_s, u"bake"_s}), u"there is no command \"sum bake\""_s);
    EXPECT_EQ(complaint({u"su"_s}), u"there is no command \"su\""_s);
    EXPECT_EQ(complaint({u"sum"_s, u"make"_s, u"--deep"_s}), u"sum make has no option \"--deep\""_s);
}

TEST(BatchOptions, ACommandMayDoWithoutFiles)
{
    EXPECT_EQ(complaint({u"sum"_s, u"test"_s}), u"sum test needs files or folders"_s);
    EXPECT_TRUE(parse({u"sum"_s, u"make"_s}).files.isEmpty());
}

TEST(BatchOptions, HelpOfAFirstWordNamesWhatFollowsIt)
{
    const QString help = helpText(commands(), u"sum"_s);
    EXPECT_TRUE(help.contains(u"tests sums") && help.contains(u"makes sums"));
    EXPECT_FALSE(help.contains(u"turns"));
}

TEST(BatchOptions, CommonOptionsMayComeBeforeTheCommand)
{
    EXPECT_EQ(parse({u"--jobs"_s, u"2"_s, u"turn"_s, u"a"_s}).value(u"jobs"_s), u"2"_s);
}

TEST(BatchOptions, AChoiceIsSpelledAsTheTableSpellsIt)
{
    EXPECT_EQ(parse({u"turn"_s, u"--format"_s, u"aiff"_s, u"a"_s}).value(u"format"_s), u"AIFF"_s);
    EXPECT_EQ(complaint({u"turn"_s, u"--format"_s, u"mp3"_s, u"a"_s}), u"--format takes WAV or AIFF, not \"mp3\""_s);
}

TEST(BatchOptions, WhatFollowsTwoDashesIsFiles)
{
    EXPECT_EQ(parse({u"turn"_s, u"--"_s, u"--hard"_s, u"-x"_s}).files, (QStringList{u"--hard"_s, u"-x"_s}));
}

TEST(BatchOptions, AValueMayHoldAnEqualsSignOrLookLikeAnOption)
{
    EXPECT_EQ(parse({u"turn"_s, u"--out=a=b"_s, u"x"_s}).value(u"out"_s), u"a=b"_s);
    EXPECT_EQ(parse({u"turn"_s, u"--out"_s, u"--hard"_s, u"x"_s}).value(u"out"_s), u"--hard"_s);
}

TEST(BatchOptions, WrongUsageIsNamed)
{
    EXPECT_EQ(complaint({}), u"no command is given"_s);
    EXPECT_EQ(complaint({u"bake"_s}), u"there is no command \"bake\""_s);
    EXPECT_EQ(complaint({u"turn"_s}), u"turn needs files or folders"_s);
    EXPECT_EQ(complaint({u"turn"_s, u"--soft"_s, u"a"_s}), u"turn has no option \"--soft\""_s);
    EXPECT_EQ(complaint({u"turn"_s, u"-x"_s, u"a"_s}), u"turn has no option \"-x\""_s);
    EXPECT_EQ(complaint({u"--hard"_s, u"turn"_s}), u"the command comes first, then \"--hard\""_s);
    EXPECT_EQ(complaint({u"turn"_s, u"a"_s, u"--out"_s}), u"--out needs a value"_s);
    EXPECT_EQ(complaint({u"turn"_s, u"--hard=1"_s, u"a"_s}), u"--hard takes no value"_s);
    for (const QString& jobs : {u"0"_s, u"-1"_s, u"two"_s, u""_s}) {
        EXPECT_EQ(complaint({u"turn"_s, u"--jobs"_s, jobs, u"a"_s}), u"--jobs takes a number from 1"_s);
    }
}

TEST(BatchOptions, HelpAndVersionNeedNothingElse)
{
    EXPECT_EQ(parse({u"--help"_s}).action, BatchOptions::Action::Help);
    EXPECT_EQ(parse({u"turn"_s, u"-h"_s}).command, u"turn"_s);
    EXPECT_EQ(parse({u"--version"_s}).action, BatchOptions::Action::Version);
}

TEST(BatchOptions, HelpNamesEveryOption)
{
    EXPECT_THAT(helpText(commands()).toStdString(), testing::HasSubstr("turns"));
    const QString help = helpText(commands(), u"turn"_s);
    for (const QString& option : {u"--format WAV|AIFF"_s, u"--out DIR"_s, u"--hard"_s, u"--jobs N"_s, u"--yes"_s}) {
        EXPECT_TRUE(help.contains(option)) << option.toStdString();
    }
}

TEST(BatchOptions, HelpTellsOptionsFromTheirWordsHoweverLongTheyAre)
{
    const QString help = helpText(commands(), u"sum test"_s);
    EXPECT_TRUE(help.contains(u"\n  --kind ONE|ANOTHER|A-THIRD|A-FOURTH  which\n"_s)) << help.toStdString();
    EXPECT_TRUE(help.contains(u"\n  --deep                               deep\n"_s)) << help.toStdString();
    EXPECT_TRUE(help.contains(u"\n  --jobs N                             how many"_s)) << help.toStdString();
}
