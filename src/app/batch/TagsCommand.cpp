#include "app/batch/TagsCommand.h"

#include "app/Program.h"
#include "app/batch/CommonOptions.h"
#include "app/batch/Console.h"
#include "app/batch/TagsListing.h"
#include "platform/desktop/Panels.h"
#include "platform/files/NamedFile.h"
#include "platform/images/Image.h"
#include "shell/Wording.h"
#include "shell/ZOLTController.h"
#include "shntool/TrackNameInputController.h"
#include "tags/TagFields.h"
#include "tags/TagsTab.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

TagsTab& tagsTab(BaseTab& tab)
{
    return static_cast<TagsTab&>(tab);
}

BaseTab& theTab(Program& program, const BatchOptions&)
{
    return program.tab<TagsTab>();
}

/// Selects every file of the list, as Ctrl+A does: one file brings its own fields.
void selectAll(TagsTab& tab)
{
    QList<qsizetype> rows;
    for (qsizetype row = 0; row < tab.fileNames().count(); ++row)
        rows += row;
    try {
        tab.tableView->selectRows(rows);
    } catch (const PlatformException& fault) {
        throw UsageError{onOneLine(tab.fileNames().at(0)) + u": "_s + fault.reason()};
    }
    // The file keeps its cover: written again it would be there twice.
    if (!tab.writeEmptyTags()) tab.albumArtImageView->setImage(nullptr);
}

std::shared_ptr<const Image> coverIn(const QString& path)
{
    NamedFile file(path);
    const auto image = file.open(QIODevice::ReadOnly) ? Image::fromData(file.readAll()) : nullptr;
    if (!image) throw UsageError{u"--cover: %1 is not a picture that can be read"_s.arg(onOneLine(path))};
    return image;
}

using Pairs = QList<std::pair<QString, QString>>;

Pairs customTagsIn(const BatchOptions& options)
{
    Pairs pairs;
    for (const QString& given : options.values(u"custom"_s)) {
        const qsizetype sign = given.indexOf(u'=');
        if (sign < 1) throw UsageError{u"--custom takes NAME=VALUE, not \"%1\""_s.arg(given)};
        pairs += {given.first(sign).toUpper(), given.sliced(sign + 1)};
    }
    if (pairs.size() > ZOLTCustomTagsPanel::pairCount)
        throw UsageError{u"--custom can be given %1 times"_s.arg(ZOLTCustomTagsPanel::pairCount)};
    return pairs;
}

/// The given pairs come first, then as many of the file's own as find room.
void setCustomTags(ZOLTCustomTagsPanel& panel, Pairs pairs)
{
    if (pairs.isEmpty()) return;
    for (int count = 1; count <= ZOLTCustomTagsPanel::pairCount; ++count) {
        const QString own = panel.nameText(count)->stringValue();
        const bool isGiven =
            std::any_of(pairs.begin(), pairs.end(), [&](const auto& pair) { return pair.first == own.toUpper(); });
        if (!own.isEmpty() && !isGiven) pairs += {own, panel.valueText(count)->stringValue()};
    }
    panel.clearTags();
    panel.setCustomTagDictionary(CustomTags()); // it exists: the texts are written
    int count = 0;
    for (const auto& [name, value] : std::as_const(pairs))
        panel.setValueValueCount(name, value, ++count);
}

void setFields(TagsTab& tab, const BatchOptions& options)
{
    for (const TagField& field : tagFields())
        if (options.has(field.option)) tab.control(field).setStringValue(options.value(field.option));
    if (options.has(u"cover"_s)) tab.albumArtImageView->setImage(coverIn(options.value(u"cover"_s)));
    setCustomTags(tab.customTagsPanel(), customTagsIn(options));
}

void refuseFieldsOfOneFile(const TagsTab& tab, const BatchOptions& options)
{
    for (const QString& option : {u"title"_s, u"track"_s}) {
        if (options.has(option) && tab.fileNames().count() > 1)
            throw UsageError{u"--%1 is for one file; zolt-batch tags name names several"_s.arg(option)};
    }
}

/// Emptying the fields of several files has to be meant.
bool mayEmpty(const TagsTab& tab)
{
    if (!tab.writeEmptyTags() || tab.fileNames().count() < 2) return true;
    const QString question = u"Empty them?"_s;
    return panels().runAlert(tab.workPlan().cautions.join(u' '), question, u"Yes"_s, u"No"_s) ==
           alertReply::defaultButton;
}

bool prepareSet(BaseTab& base, const BatchOptions& options)
{
    TagsTab& tab = tagsTab(base);
    refuseFieldsOfOneFile(tab, options);
    tab.setWriteEmptyTags(options.has(u"clear-empty"_s));
    selectAll(tab);
    setFields(tab, options);
    return mayEmpty(tab);
}

void enterNames(TagsTab& tab, const BatchOptions& options)
{
    TrackNameInputController& names = *tab.zoltController->trackNameInputController();
    if (options.has(u"names"_s)) names.setNames(textOfOption(options.value(u"names"_s)));
    if (options.has(u"setlist"_s)) names.loadTrackNamesFromPath(options.value(u"setlist"_s));
    if (options.has(u"cue"_s))
        tab.loadTagsFromCueSheet(nullptr); // asks for the file, which the option answers
    else
        names.inputOK(nullptr);
}

bool prepareName(BaseTab& base, const BatchOptions& options)
{
    TagsTab& tab = tagsTab(base);
    selectAll(tab);
    enterNames(tab, options);
    if (tab.names().isEmpty()) throw UsageError{u"there are no names of tracks to be found"_s};
    tab.setAutoName(tab.fileNames().count() > 1);
    if (tab.autoName()) return true;
    tab.titleText->setStringValue(tab.names().constFirst());
    tab.trackText->setStringValue(u"1"_s);
    return true;
}

BaseTab& setUpName(Program& program, const BatchOptions& options)
{
    int given = 0;
    for (const QString& option : {u"names"_s, u"setlist"_s, u"cue"_s}) {
        if (!options.has(option)) continue;
        textOfOption(options.value(option)); // told before anything else if it cannot be read
        ++given;
    }
    if (given != 1) throw UsageError{u"tags name needs one of --names FILE, --setlist FILE and --cue FILE"_s};
    return theTab(program, options);
}

std::vector<OptionSyntax> setOptions()
{
    std::vector<OptionSyntax> options;
    for (const TagField& field : tagFields())
        options.push_back({field.option, u"TEXT"_s, {}, u"the "_s + field.word});
    options.push_back({u"cover"_s, u"FILE"_s, {}, u"a picture for FLAC, MP3 and M4A files"_s});
    options.push_back({u"custom"_s, u"NAME=VALUE"_s, {}, u"another tag of FLAC files; up to eight times"_s});
    options.push_back({u"clear-empty"_s,
                       {},
                       {},
                       u"empties every field that is not given; in FLAC files all other tags and pictures go too"_s});
    return options;
}

BaseTab& setUpSet(Program& program, const BatchOptions& options)
{
    const auto all = setOptions();
    if (std::none_of(all.begin(), all.end(), [&](const OptionSyntax& each) { return options.has(each.name); }))
        throw UsageError{u"tags set needs something to be set"_s};
    customTagsIn(options);
    return theTab(program, options);
}

RunRow rowOf(const QString& path, Outcome outcome)
{
    return {.title = path::lastComponent(path), .source = path, .outcome = outcome};
}

/// What became of each file; those behind one that failed are untouched.
Done rowsOf(const TagsTab& tab)
{
    Done done;
    const QStringList files = tab.lastRun().asked > 0 ? tab.selectedFiles() : QStringList();
    const auto& tried = tab.lastRun().files;
    for (qsizetype i = 0; i < files.size(); ++i) {
        const bool wasTried = i < tried.size();
        const OptionalText refusal = wasTried ? tried[i].refusal : std::nullopt;
        done.rows.push_back(rowOf(files[i], !wasTried ? Outcome::Canceled
                                            : refusal ? Outcome::Failed
                                                      : Outcome::Complete));
        if (refusal) done.faults += path::lastComponent(files[i]) + u": "_s + *refusal;
    }
    return done;
}

Done write(BaseTab& base, const BatchOptions&, const std::function<bool()>& goesOn)
{
    TagsTab& tab = tagsTab(base);
    tab.setBetweenFiles(goesOn);
    try {
        tab.executeCommand(nullptr);
    } catch (const PlatformException&) {
        // Ended the run; the tab knows at which file, and why.
    }
    tab.setBetweenFiles({});
    return rowsOf(tab);
}

Done show(BaseTab& base, const BatchOptions& options, const std::function<bool()>& goesOn)
{
    Done done;
    for (const QString& path : base.fileNames().copy()) {
        if (!goesOn()) break;
        const TagsListing listing(path);
        done.text += options.has(u"json"_s) ? listing.json() : listing.text();
        if (!listing.fault().isEmpty()) done.faults += listing.fault();
    }
    return done;
}

} // namespace

std::vector<BatchCommand> tagsCommands()
{
    return {{.syntax = {u"tags show"_s, u"prints the tags of files"_s, {}}, .setUp = theTab, .atOnce = show},
            {.syntax = {u"tags set"_s, u"writes tags into files; one file keeps those of its own that are not given"_s,
                        setOptions()},
             .setUp = setUpSet,
             .ready = prepareSet,
             .atOnce = write},
            {.syntax = {u"tags name"_s,
                        u"writes titles and track numbers into files, in the order of their sorted paths"_s,
                        {{u"names"_s, u"FILE"_s, {}, u"names of the tracks, one a line"_s},
                         {u"setlist"_s, u"FILE"_s, {}, u"a text whose numbered lines are the names of the tracks"_s},
                         {u"cue"_s, u"FILE"_s, {}, u"a cue sheet, whose album and artist are written too"_s}}},
             .setUp = setUpName,
             .ready = prepareName,
             .atOnce = write}};
}

} // namespace zolt::batch
