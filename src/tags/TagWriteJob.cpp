#include "tags/TagWriteJob.h"

#include "shell/Constants.h"
#include "shell/Wording.h"
#include "tags/TagFields.h"

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

std::span<const TagField> fieldsFor(bool isOne)
{
    return isOne ? std::span(tagFields()) : sharedTagFields();
}

QString capitalised(const QString& text)
{
    return text.left(1).toUpper() + text.mid(1);
}

bool hasValues(const CustomTags& custom)
{
    return std::any_of(custom.begin(), custom.end(), [](const QString& value) { return !value.isEmpty(); });
}

} // namespace

QStringList TagWriteJob::paths() const
{
    QStringList all;
    for (const Row& row : rows)
        all += row.path;
    return all;
}

/// Kept: by the row in the whole list, not by the place among the selected ones.
TagsObject TagWriteJob::recordFor(const Row& row) const
{
    TagsObject record = tags;
    if (!isNamed) return record;
    record.setTitleText(pieceAt(names, row.row));
    record.setTrackText(QString::number(row.row + 1));
    return record;
}

void TagWriteJob::tellIn(WorkPlan& plan) const
{
    for (const Row& row : rows)
        plan.items.push_back({.row = row.row, .source = row.path, .caution = cautionOf(row)});
    plan.words = words();
    if (!rows.isEmpty()) plan.cautions += cautions();
}

QString TagWriteJob::cautionOf(const Row& row) const
{
    if (!isNamed || row.row < names.size()) return {};
    if (names.isEmpty()) return u"There are no track names yet."_s;
    return u"The track names end at row %1: enter more of them, or leave out what is behind it."_s.arg(names.size());
}

/// "Write artist and album to 12 files".
QString TagWriteJob::words() const
{
    if (rows.isEmpty()) return u"Select the files to be tagged"_s;
    QStringList words;
    if (isNamed) words = {u"title"_s, u"track"_s};
    for (const TagField& field : fieldsFor(isOne))
        if (!field.textOf(tags).isEmpty()) words += field.word;
    if (tags.albumArt()) words += u"cover"_s;
    if (hasValues(tags.customTagsDictionary())) words += u"custom tags"_s;
    if (words.isEmpty()) words += writesEmpty ? u"empty fields"_s : u"nothing"_s;
    return u"Write %1 to %2"_s.arg(enumerated(words), counted(rows.size(), u"file"_s));
}

bool TagWriteJob::has(const QStringList& kinds) const
{
    return std::any_of(rows.begin(), rows.end(),
                       [&](const Row& row) { return kinds.contains(path::extension(row.path).toUpper()); });
}

QString TagWriteJob::emptied() const
{
    QStringList words;
    for (const TagField& field : fieldsFor(isOne))
        if (field.textOf(tags).isEmpty()) words += field.word;
    if (words.isEmpty()) return {};
    return u"%1 will be emptied in %2."_s.arg(capitalised(enumerated(words)), counted(rows.size(), u"file"_s));
}

QStringList TagWriteJob::cautions() const
{
    using C = Constants;
    QStringList all;
    if (writesEmpty) {
        all += emptied();
        if (has({C::FLAC})) all += u"FLAC files lose every tag and picture that is not shown here."_s;
        if (artIsUnreadable) all += u"The picture that cannot be shown here is removed from the file."_s;
    }
    if (tags.albumArt() && has({C::MP3})) all += u"MP3 files keep the covers that they have; this one is added."_s;
    if (tags.albumArt() && !writesEmpty && has({C::FLAC}))
        all += u"FLAC files keep the covers that they have; this one is added."_s;
    if (tags.albumArt() && has({C::WV, C::APE})) all += u"WV and APE files hold no cover."_s;
    if (removesArt && (!writesEmpty || has({C::M4A})))
        all += has({C::M4A}) ? u"The cover stays in the file: of M4A files it can only be replaced."_s
                             : u"The cover stays in the file unless empty fields are written too."_s;
    if (hasValues(tags.customTagsDictionary()) && has({C::MP3, C::M4A, C::WV, C::APE}))
        all += u"Custom tags go to FLAC files alone."_s;
    all.removeAll(QString());
    return all;
}

} // namespace zolt
