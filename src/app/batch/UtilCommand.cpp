#include "app/batch/UtilCommand.h"

#include "app/Program.h"
#include "app/batch/CommonOptions.h"
#include "platform/files/Files.h"
#include "util/DiscContents.h"
#include "util/DiscTracks.h"
#include "util/UtilTab.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

UtilTab& chosen(Program& program, const QString& command)
{
    auto& tab = program.tab<UtilTab>();
    tab.commandMatrix->selectTitle(command); // without the question that a click on one of them asks
    return tab;
}

OptionSyntax folderOption()
{
    return {u"out"_s, u"DIR"_s, {}, u"writes into DIR; needed"_s, true};
}

/// Presses the tab; a file is renamed when its old name is gone.
Done rename(BaseTab& tab, const BatchOptions&, const std::function<bool()>&)
{
    const QStringList files = tab.fileNames().copy();
    tab.executeCommand(nullptr);
    Done done;
    for (const QString& file : files)
        done.rows.push_back({.title = path::lastComponent(file),
                             .source = file,
                             .outcome = exists(file) ? Outcome::Failed : Outcome::Complete});
    return done;
}

BatchCommand renameCommand()
{
    return {.syntax = {u"util rename"_s,
                       u"renames files to a prefix and a number: all of them, or none where a name is taken"_s,
                       {{u"prefix"_s, u"P"_s, {}, u"what the new names begin with; needed"_s, true}}},
            .setUp = [](Program& program, const BatchOptions& options) -> BaseTab& {
                auto& tab = chosen(program, UtilTab::renaming);
                tab.setPrefix(options.value(u"prefix"_s));
                return tab;
            },
            .atOnce = rename};
}

BatchCommand gainCommand()
{
    return {.syntax = {u"util gain"_s,
                       u"adds replay gain to FLAC files, as one album, or removes it"_s,
                       {{u"add"_s, {}, {}, u"adds it (so it is without an option)"_s},
                        {u"remove"_s, {}, {}, u"removes it"_s}}},
            .setUp = [](Program& program, const BatchOptions& options) -> BaseTab& {
                auto& tab = chosen(program, UtilTab::replayGain);
                tab.replayGainMatrix->selectTitle(options.has(u"remove"_s) ? u"Remove"_s : u"Add"_s);
                return tab;
            }};
}

BatchCommand deEmphasisCommand()
{
    return {
        .syntax = {u"util deemphasis"_s, u"takes the emphasis of old discs off WAV and AIFF files"_s, {folderOption()}},
        .setUp = [](Program& program, const BatchOptions& options) -> BaseTab& {
            auto& tab = chosen(program, UtilTab::deEmphasis);
            setOutputFolder(tab, options);
            return tab;
        }};
}

/// "1-5" as the tracks that it names; those of the whole disc without it.
QList<DiscTrack> wantedTracks(const BatchOptions& options, const QString& device, QString& fault)
{
    if (!options.has(u"tracks"_s)) return readDiscContents(device, fault);
    const QString range = options.value(u"tracks"_s);
    const int first = intValue(range.section(u'-', 0, 0)), last = intValue(range.section(u'-', -1));
    if (first < 1 || last < first || last > 99) fault = u"--tracks takes a range such as 1-5, not \"%1\""_s.arg(range);
    QList<DiscTrack> tracks;
    for (int number = first; fault.isEmpty() && number <= last; ++number)
        tracks.append(DiscTrack{number, false});
    return tracks;
}

/// The drive behind whatever link it was named by. @throws UsageError for what is none
QString driveOf(const QString& device)
{
    const QString drive = path::lastComponent(realPath(device));
    if (discDrives().contains(drive)) return drive;
    throw UsageError{u"%1 is no drive for discs"_s.arg(device)};
}

/// The tool reads one unbroken run of tracks. @throws UsageError for a disc with a gap in them
void expectOneRun(const QStringList& names)
{
    const QList<qsizetype> behind = rowsOutsideRange(names);
    if (behind.isEmpty()) return;
    const TrackRange range = rangeOf(tracksInOrder(names));
    throw UsageError{u"tracks from %1 on lie behind a gap: read them by themselves, after --tracks %2-%3"_s
                         .arg(leadingNumber(names[behind.first()]))
                         .arg(range.first)
                         .arg(range.last)};
}

BaseTab& setUpExtraction(Program& program, const BatchOptions& options)
{
    auto& tab = chosen(program, UtilTab::extraction);
    setOutputFolder(tab, options);
    tab.setOneTrack(options.has(u"one-file"_s));
    const QString drive = driveOf(options.value(u"device"_s, u"/dev/sr0"_s));
    QString fault;
    const auto names = trackFileNames(wantedTracks(options, u"/dev/"_s + drive, fault), {});
    if (!fault.isEmpty()) throw UsageError{fault};
    expectOneRun(names);
    tab.addFiles(placeTrackFiles(drive, names));
    return tab;
}

BatchCommand extractionCommand()
{
    return {.syntax = {u"util cd"_s,
                       u"reads the tracks of an audio disc into WAV files and writes a log"_s,
                       {{u"device"_s, u"DEVICE"_s, {}, u"the drive (otherwise /dev/sr0)"_s},
                        {u"tracks"_s, u"1-5"_s, {}, u"these tracks (otherwise all)"_s},
                        {u"one-file"_s, {}, {}, u"all tracks into one file, audio.wav"_s},
                        folderOption()},
                       false},
            .setUp = setUpExtraction};
}

QString discTable(const BaseTab& tab)
{
    const auto& util = dynamic_cast<const UtilTab&>(tab);
    QString table;
    for (qsizetype row = 0; row < util.numberOfRowsInTableView(); ++row) {
        QStringList cells;
        for (int column = 1; column <= 3; ++column)
            cells += util.tableViewObjectValueForTableColumnRow(column, row);
        table += cells.join(u'\t') + u'\t' + util.tableViewObjectValueForTableColumnRow(0, row) + u'\n';
    }
    return table + u"%1\t%2\n"_s.arg(util.dvdAudioDiscTime->stringValue(), util.dvdAudioDiscSize->stringValue());
}

QString scanNote(const BaseTab& tab)
{
    return dynamic_cast<const UtilTab&>(tab).scanNote->stringValue();
}

BatchCommand discInfoCommand()
{
    return {
        .syntax = {u"util disc-info"_s,
                   u"prints length, sample rate and bit depth of files for a DVD-Audio disc, and the disc's totals"_s,
                   {}},
        .setUp = [](Program& program, const BatchOptions&) -> BaseTab& { return chosen(program, UtilTab::dvdDisc); },
        .note = scanNote,
        .answer = discTable};
}

BatchCommand dvdCommand()
{
    return {.syntax = {u"util dvd"_s, u"makes the image of a DVD-Audio disc"_s, {folderOption()}},
            .setUp = [](Program& program, const BatchOptions& options) -> BaseTab& {
                auto& tab = chosen(program, UtilTab::dvdDisc);
                setOutputFolder(tab, options);
                return tab;
            },
            .note = scanNote};
}

} // namespace

std::vector<BatchCommand> utilCommands()
{
    return {renameCommand(), gainCommand(), deEmphasisCommand(), extractionCommand(), discInfoCommand(), dvdCommand()};
}

} // namespace zolt::batch
