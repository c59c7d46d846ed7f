#include "app/batch/ShntoolCommand.h"

#include "app/Program.h"
#include "app/batch/CommonOptions.h"
#include "shell/Constants.h"
#include "shntool/SHNtoolTab.h"
#include "shntool/TrackNameList.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

/// Takes the lines of the text, as the window for names does.
void setNames(SHNtoolTab& tab, const QString& text)
{
    QStringList names = splitIntoLines(text);
    names.removeAll(QString());
    if (!names.isEmpty()) tab.names = names;
}

QString lenForm(const QString& choice)
{
    if (choice == u"fileset") return C::LEN_BY_FILESET;
    return choice == u"disc" ? C::LEN_BY_DISC : C::NORMAL_LEN_OUTPUT;
}

SHNtoolTab& chosen(Program& program, const QString& command, const BatchOptions& options)
{
    auto& tab = program.tab<SHNtoolTab>();
    tab.shntoolCommandMatrix->selectTitle(command);
    tab.outputFormatMatrix->selectTitle(options.value(u"format"_s, C::FLAC));
    tab.displayRelevantOptions();
    return tab;
}

BaseTab& setUpLen(Program& program, const BatchOptions& options)
{
    SHNtoolTab& tab = chosen(program, C::LEN, options);
    tab.shnLenMatrix->selectTitle(lenForm(options.value(u"by"_s)));
    if (options.has(u"names"_s)) setNames(tab, textOfOption(options.value(u"names"_s)));
    if (options.has(u"setlist"_s)) setNames(tab, trackNamesIn(textOfOption(options.value(u"setlist"_s))));
    return tab;
}

BaseTab& setUpSplit(Program& program, const BatchOptions& options)
{
    SHNtoolTab& tab = chosen(program, C::SPLIT, options);
    requireOutputFolder(tab, options);
    if (!options.has(u"points"_s)) throw UsageError{u"shntool split needs --points FILE"_s};
    textOfOption(options.value(u"points"_s));
    return tab;
}

BaseTab& setUpCue(Program& program, const BatchOptions& options)
{
    if (!options.has(u"out"_s)) throw UsageError{u"shntool cue needs --out FILE"_s};
    return chosen(program, C::CUE, options);
}

/// A command without options.
BatchCommand plain(const QString& name, const QString& summary)
{
    return {.syntax = {u"shntool "_s + name, summary, {}},
            .setUp = [name](Program& program, const BatchOptions& options) -> BaseTab& {
                return chosen(program, name, options);
            }};
}

/// A command that writes audio into a folder.
BatchCommand writing(const QString& name, const QString& summary)
{
    return {.syntax = {u"shntool "_s + name, summary, {shntoolFormatOption(), requiredOutOption()}},
            .setUp = [name](Program& program, const BatchOptions& options) -> BaseTab& {
                SHNtoolTab& tab = chosen(program, name, options);
                requireOutputFolder(tab, options);
                return tab;
            }};
}

BatchCommand lenCommand()
{
    return {.syntax = {u"shntool len"_s,
                       u"reports how long the files are"_s,
                       {{u"by"_s,
                         u"FORM"_s,
                         {u"file"_s, u"fileset"_s, u"disc"_s},
                         u"the tool's table (file, otherwise), or a list of tracks of all files or of each disc"_s},
                        {u"names"_s, u"FILE"_s, {}, u"names of the tracks, one a line"_s},
                        {u"setlist"_s, u"FILE"_s, {}, u"a text whose numbered lines are the names of the tracks"_s}}},
            .setUp = setUpLen};
}

BatchCommand splitCommand()
{
    BatchCommand command = writing(C::SPLIT, u"cuts the first file into tracks"_s);
    command.syntax.options.push_back(
        {u"points"_s, u"FILE"_s, {}, u"a cue sheet, or a text file with the time of a cut on each line"_s});
    command.setUp = setUpSplit;
    return command;
}

BatchCommand cueCommand()
{
    return {.syntax = {u"shntool cue"_s,
                       u"writes a cue sheet with a track for each file"_s,
                       {{u"out"_s, u"FILE"_s, {}, u"the cue sheet"_s}}},
            .setUp = setUpCue};
}

} // namespace

std::vector<BatchCommand> shntoolCommands()
{
    return {lenCommand(),
            plain(C::INFO, u"reports everything about the files' audio and headers"_s),
            plain(C::CMP, u"compares the audio of two files"_s),
            writing(C::TRIM, u"cuts silence off the ends of files"_s),
            splitCommand(),
            writing(C::JOIN, u"joins the files, sorted by name, into one"_s),
            cueCommand(),
            writing(C::PAD, u"pads files to a CD sector boundary"_s),
            writing(C::STRIP, u"leaves nothing but plain headers and audio"_s)};
}

} // namespace zolt::batch
