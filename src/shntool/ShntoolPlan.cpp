#include "shntool/ShntoolPlan.h"

#include "shell/Constants.h"
#include "shell/Wording.h"
#include "shntool/ShntoolInspection.h"

#include <QHash>

#include <algorithm>

namespace zolt::shntoolPlan {

using namespace Qt::StringLiterals;
using namespace shntoolInspection;

namespace {

using C = Constants;

/// What differs from one command to the next.
struct Command
{
    QString name;
    QString words;            ///< of the plan, around the files
    QString about;            ///< with hyphens that no line breaks at
    OptionalText suffix = {}; ///< of an output's name; absent for a command that makes none of each file
    bool asksForFolder = false;
    Cautions (*inspect)(const WorkPlan&, const Stop&) = nullptr;
    qsizetype files = 0; ///< how many it is for; 0 for any number
};

const std::vector<Command>& commands()
{
    static const std::vector<Command> rows{
        {C::LEN, u"A report on the lengths of %1"_s,
         u"Lists how long the files are, with names for the tracks if you like."_s},
        {C::INFO, u"A report on what %1 hold"_s, u"Tells everything about each file's audio and header."_s},
        {.name = C::CMP,
         .words = u"A comparison of %1"_s,
         .about = u"Compares the audio of two files, bit by bit."_s,
         .files = 2},
        {.name = C::TRIM,
         .words = u"%1 without the silence at their ends, to %2"_s,
         .about =
             u"Cuts silence off the ends of each file, into one named \"...\u2011trimmed\". You are asked for a folder. A file without such silence fails."_s,
         .suffix = u"-trimmed"_s,
         .asksForFolder = true},
        {.name = C::SPLIT,
         .words = u"%1 cut into tracks, to %2"_s,
         .about =
             u"Cuts the first file at the places of a cue sheet, or at the times in a text file, one a line. You are asked for that file and for a folder. Pieces get the titles of a cue sheet, else they are named split-track01 and so on."_s,
         .asksForFolder = true,
         .inspect = wantsPlaceForPieces},
        {.name = C::JOIN,
         .words = u"%1 joined into one, to %2"_s,
         .about =
             u"Joins the files, in the order of the list, into one named \"joined\". You are asked for a folder."_s,
         .asksForFolder = true},
        {.name = C::CUE,
         .words = u"A cue sheet of %1"_s,
         .about =
             u"Writes a cue sheet with a track for each file, as if they were joined. You are asked where to save it."_s,
         .inspect = wantsCdAudio},
        {.name = C::PAD,
         .words = u"%1 padded to a CD sector, to %2"_s,
         .about =
             u"Adds silence up to a CD sector boundary, into a file named \"...\u2011padded\", in the format last chosen for split, join or trim. You are asked for a folder."_s,
         .suffix = u"-padded"_s,
         .asksForFolder = true,
         .inspect = wantsRaggedEnd},
        {.name = C::STRIP,
         .words = u"%1 without extra chunks, to %2"_s,
         .about =
             u"Leaves nothing but a plain header and the audio, in a file named \"...\u2011stripped\", in the format last chosen for split, join or trim. You are asked for a folder."_s,
         .suffix = u"-stripped"_s,
         .asksForFolder = true,
         .inspect = wantsSomethingToStrip},
        {.name = C::FIX,
         .words = u"%1 with repaired sector boundaries, to %2"_s,
         .about = QString(),
         .suffix = u""_s,
         .asksForFolder = true,
         .inspect = wantsBrokenBoundary},
    };
    return rows;
}

const Command& commandOf(const QString& name)
{
    const auto row =
        std::find_if(commands().begin(), commands().end(), [&](const Command& each) { return each.name == name; });
    return row == commands().end() ? commands().front() : *row;
}

/// What shntool has a kind of file read or written with.
QString helperOf(const QString& extension)
{
    static const QHash<QString, QString> helpers{{C::FLAC, u"flac"_s},  {C::SHN, u"shorten"_s}, {C::WV, u"wvunpack"_s},
                                                 {C::TTA, u"ttaenc"_s}, {C::APE, u"mac"_s},     {C::AIFF, u"sox"_s},
                                                 {C::AIF, u"sox"_s}};
    return helpers.value(extension.toUpper());
}

QStringList tools(const WorkPlan& plan, const QString& format)
{
    QStringList all{u"shntool"_s, helperOf(format)};
    for (const WorkItem& item : plan.items)
        all += helperOf(path::extension(item.source));
    all.removeDuplicates();
    all.removeAll(QString());
    return all;
}

/// The name that the tool makes an output's from: only an ending that it knows, in lower case, goes.
QString baseOf(const QString& file)
{
    static const QStringList known{u"wav"_s, u"aiff"_s, u"flac"_s, u"shn"_s, u"wv"_s, u"tta"_s, u"ape"_s};
    const QString name = path::lastComponent(file);
    return known.contains(path::extension(name)) ? path::deletingExtension(name) : name;
}

QStringList outputs(const WorkPlan& plan, const QString& file, const Command& command, const QString& format)
{
    if (command.name == C::JOIN) return {path::appendingComponent(plan.folder, u"joined."_s + format)};
    if (!command.suffix) return {};
    const QString base = command.name == C::FIX ? path::deletingExtension(path::lastComponent(file)) : baseOf(file);
    return {path::appendingComponent(plan.folder, base + *command.suffix + u'.' + format)};
}

void addItems(WorkPlan& plan, const Command& command, const QString& format)
{
    const qsizetype count = command.name == C::SPLIT ? std::min<qsizetype>(1, plan.files.size()) : plan.files.size();
    for (qsizetype row = 0; row < count; ++row) {
        const QString& file = plan.files[row];
        plan.items.push_back({.row = row,
                              .source = file,
                              .outputs = outputs(plan, file, command, format),
                              .sharesOutput = command.name == C::JOIN});
    }
}

/// What is to be known about the names that the tool chooses.
QString namesInWords(const WorkPlan& plan)
{
    QStringList kept;
    for (const WorkItem& item : plan.items) {
        if (!item.outputs.isEmpty() && !path::extension(item.source).isEmpty() &&
            baseOf(item.source) == path::lastComponent(item.source))
            kept += path::lastComponent(item.outputs.first());
    }
    if (kept.isEmpty()) return QString();
    return u"Endings in capitals and .aif become part of the name: %1"_s.arg(kept.first());
}

void addCautions(WorkPlan& plan, const Command& command)
{
    if (command.files != 0 && plan.files.size() != command.files)
        plan.cautions += u"%1 is for two files; there are %2 in the list"_s.arg(command.name).arg(plan.files.size());
    if (command.name == C::JOIN && plan.files.size() == 1) plan.cautions += u"One file alone cannot be joined"_s;
    if (command.name == C::SPLIT && plan.files.size() > 1)
        plan.cautions +=
            u"Only %1 is split; the other files leave the list"_s.arg(path::lastComponent(plan.files.first()));
    const bool namedByEach = command.name != C::JOIN && command.name != C::FIX;
    const QString names = namedByEach ? namesInWords(plan) : QString();
    if (!names.isEmpty()) plan.cautions += names;
}

} // namespace

void plan(WorkPlan& plan, const QString& command, const QString& format, const OptionalText& destination)
{
    const Command& row = commandOf(command);
    if (row.asksForFolder) plan.setPlaces(false, destination);
    addItems(plan, row, format);
    if (plan.items.empty()) return;
    plan.tools = tools(plan, row.asksForFolder ? format : QString());
    plan.words = row.words.contains(u"%2"_s) ? row.words.arg(filesInWords(plan.sources()), format.toUpper())
                                             : row.words.arg(filesInWords(plan.sources()));
    plan.inspect = row.inspect;
    addCautions(plan, row);
}

QString aboutCommand(const QString& command)
{
    return commandOf(command).about;
}

} // namespace zolt::shntoolPlan
