#include "tags/TagsTab.h"

#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"
#include "shntool/TrackNameInputController.h"
#include "tags/CoverInWords.h"
#include "tags/CueSheetTagImporter.h"
#include "tags/TagFields.h"
#include "tags/TagRoutes.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <span>

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

using Control = std::shared_ptr<TextField> TagsTab::*;

/// The controls of the fields, in the fields' order.
constexpr Control controls[] = {&TagsTab::titleText,     &TagsTab::trackText,     &TagsTab::artistText,
                                &TagsTab::dateText,      &TagsTab::albumText,     &TagsTab::discText,
                                &TagsTab::commentText,   &TagsTab::genreText,     &TagsTab::composerText,
                                &TagsTab::discTotalText, &TagsTab::trackTotalText};

} // namespace

TagsTab::TagsTab()
{
    NotificationCenter::standard().addObserver(
        this, Constants::ZOLTTrackNamesEnteredNotification, nullptr,
        [this](const Notification& notification) { trackNamesEntered(notification); });
    autoNameButton->setAction([this] { autoNameClick(autoNameButton.get()); });
    customTagsButton->setAction([this] { openCustomTagsPanel(customTagsButton.get()); });
    namesButton->setAction([this] { showNamesWindow(namesButton.get()); });
    cueSheetButton->setAction([this] { loadTagsFromCueSheet(cueSheetButton.get()); });
    autoNameButton->setTitle(u"Name and number from the track names"_s);
    writeEmptyTagsButton->setTitle(u"Write empty fields too"_s);
    customTagsButton->setTitle(u"Custom Tags..."_s);
    namesButton->setTitle(u"Track Names..."_s);
    cueSheetButton->setTitle(u"Load Tags From CUE Sheet..."_s);
}

TagsTab::~TagsTab()
{
    NotificationCenter::standard().removeObserver(this, Constants::ZOLTTrackNamesEnteredNotification, nullptr);
}

void TagsTab::awakeFromNib()
{
    BaseTab::awakeFromNib();
    tableView->setAction([this] { followSelection(); });
    tableViewSelectionDidChange();
}

void TagsTab::openCustomTagsPanel(Sender)
{
    customTagsPanel_.runPanel();
}

bool TagsTab::validateMenuItem(const QString& title) const
{
    const auto front = zoltController ? zoltController->selectedTabViewItem() : nullptr;
    return title == u"Load Tags From CUE Sheet..." && front && front->label() == Constants::TAGS;
}

void TagsTab::loadTagsFromCueSheet(Sender)
{
    const auto tags = CueSheetTagImporter().loadTagsFromCueSheet();
    if (!tags) return;
    if (tags->albumText()) albumText->setStringValue(*tags->albumText());
    if (tags->artistText()) artistText->setStringValue(*tags->artistText());
}

void TagsTab::clearFiles()
{
    BaseTab::clearFiles();
    followSelection();
    setAutoName(false);
}

void TagsTab::autoNameClick(Sender)
{
    if (autoName()) showNamesWindow(nullptr);
}

void TagsTab::setTrackNameWindow(const std::shared_ptr<TrackNameInputController>& window)
{
    trackNamesWindow_ = window;
}

void TagsTab::showNamesWindow(Sender)
{
    if (!trackNamesWindow_) return;
    if (!trackNamesWindow_->isWindowLoaded()) trackNamesWindow_->loadWindow();
    trackNamesWindow_->showWindow(nullptr);
}

TextField& TagsTab::control(const TagField& field) const
{
    return *(this->*controls[std::size_t(&field - tagFields().data())]);
}

void TagsTab::fillTagsForSelectedRow()
{
    albumArtImageView->setImage(nullptr);
    const QString path = fileNames().at(tableView->selectedRow());
    const TagRoute* const route = tagRouteFor(path);
    try {
        fillTags(route ? *route->read(path) : TagsObject());
    } catch (const PlatformException& fault) {
        fillTags(TagsObject()); // what stands there is another file's
        resultLabel->setStringValue(path::lastComponent(path) + u": "_s + fault.reason());
        throw;
    }
}

void TagsTab::fillTags(const TagsObject& tags)
{
    artIsUnreadable_ = tags.artIsUnreadable();
    fileHasArt_ = tags.albumArt() != nullptr;
    customTagsPanel_.clearTags();
    for (const TagField& field : tagFields())
        control(field).setStringValue(field.textOf(tags));
    if (tags.albumArt()) albumArtImageView->setImage(tags.albumArt());
    if (!tags.customTagsDictionary().isEmpty()) customTagsPanel_.fillTags(tags.customTagsDictionary());
}

QString TagsTab::coverInWords() const
{
    if (const auto image = albumArtImageView->image()) return zolt::coverInWords(*image);
    if (artIsUnreadable_) return u"The file has a picture that cannot be shown here."_s;
    return u"No cover"_s;
}

void TagsTab::tableViewSelectionDidChange()
{
    shownReloads_ = tableView->reloads();
    shown_ = selectedFiles();
    const auto followed = qScopeGuard([this] {
        if (follow_) guarded("selection", follow_);
    });
    artIsUnreadable_ = fileHasArt_ = false;
    resultLabel->setStringValue(QString()); // it was about other files
    const qsizetype selected = shown_.size();
    multipleSelectionsLabel->setStringValue(selected > 1 ? u"multiple selections"_s : QString());
    titleText->setEnabled(selected == 1);
    trackText->setEnabled(selected == 1);
    if (selected == 1) return fillTagsForSelectedRow();
    for (const TagField& field : tagFields())
        control(field).setStringValue(QString());
    customTagsPanel_.clearTags();
    albumArtImageView->setImage(nullptr);
}

/// A reload may leave the numbers and change the files, or change the numbers and leave the files: the files count, so
/// that nothing typed is lost and nothing of one file is shown for another.
void TagsTab::followSelection()
{
    shownReloads_ = tableView->reloads();
    if (selectedFiles() != shown_) tableViewSelectionDidChange();
}

/// Whether the table's numbers are those of the present list. Behind a reload they are told anew.
bool TagsTab::isSelectionCurrent() const
{
    return shownReloads_ == tableView->reloads();
}

/// The table's numbers, or where the list has changed since they were told, the rows of the files that they meant.
QList<TagWriteJob::Row> TagsTab::selectedRows() const
{
    QList<TagWriteJob::Row> rows;
    const QStringList files = fileNames().copy();
    if (isSelectionCurrent()) {
        for (const qsizetype row : tableView->selectedRows())
            rows += {row, files.at(row)};
        return rows;
    }
    qsizetype next = 0; // both are sorted
    for (qsizetype row = 0; row < files.size() && next < shown_.size(); ++row) {
        while (next < shown_.size() && shown_[next] < files[row])
            ++next;
        if (next < shown_.size() && shown_[next] == files[row]) rows += {row, shown_[next++]};
    }
    return rows;
}

QStringList TagsTab::selectedFiles() const
{
    return TagWriteJob{.rows = selectedRows()}.paths();
}

bool TagsTab::hasEnoughNames(const TagWriteJob& job) const
{
    if (!job.isNamed || job.names.size() >= job.rows.size()) return true;
    panels().runAlert(u"Error"_s, u"Number of selected files to tag is greater than number of track names entered"_s,
                      u"OK"_s);
    return false;
}

/// What every file of a run gets.
TagsObject TagsTab::sharedRecord(bool isOne) const
{
    TagsObject tags;
    for (const TagField& field : isOne ? std::span(tagFields()) : sharedTagFields())
        (tags.*field.setText)(control(field).stringValue());
    if (albumArtImageView->image()) tags.setAlbumArt(albumArtImageView->image());
    // The dictionary may be that of a file shown before; a write makes it anew from the texts.
    if (customTagsPanel_.customTagDictionary()) tags.setCustomTagsDictionary(customTagsPanel_.tagsInTexts());
    return tags;
}

TagWriteJob TagsTab::jobWithout(const QList<qsizetype>& leftOut) const
{
    QList<TagWriteJob::Row> rows = selectedRows();
    // One that is left of several in this run is still one of several.
    const bool isOne = (isSelectionCurrent() ? rows.size() : shown_.size()) <= 1;
    rows.removeIf([&](const TagWriteJob::Row& row) { return leftOut.contains(row.row); });
    return {.rows = rows,
            .isOne = isOne,
            .tags = sharedRecord(isOne),
            .isNamed = !isOne && autoName(),
            .names = names_,
            .writesEmpty = writeEmptyTags(),
            .removesArt = fileHasArt_ && !albumArtImageView->image(),
            .artIsUnreadable = artIsUnreadable_};
}

void TagsTab::executeCommandWithout(const QList<qsizetype>& rows)
{
    if (rows.size() == fileNames().count()) return;
    const QScopedValueRollback left(leftOut_, rows);
    BaseTab::executeCommandWithout({});
}

void TagsTab::executeCommand(Sender)
{
    if (isWriting_ || fileNames().isEmpty()) return;
    // One dictionary for all records of the run.
    if (customTagsPanel_.customTagDictionary() && !selectedRows().isEmpty()) customTagsPanel_.fillTagsDictionary();
    const TagWriteJob all = jobWithout(leftOut_);
    if (hasEnoughNames(all)) write(all);
}

void TagsTab::write(const TagWriteJob& job)
{
    run_ = {.asked = job.rows.size()};
    isWriting_ = true;
    const auto told = qScopeGuard([this] { endWork(run_.sentence()); });
    keep(job);
    writeRows(job);
    setAutoName(false);
}

/// Says how far it is. @return whether to go on with the next file
bool TagsTab::goesOn(const QString& progress)
{
    resultLabel->setStringValue(progress);
    return !betweenFiles_ || betweenFiles_();
}

void TagsTab::endWork(const QString& result)
{
    goesOn(result);
    isWriting_ = false;
    resultLabel->setStringValue(result); // what happened meanwhile may have taken it away
    if (follow_) guarded("end of a run", follow_);
}

/// All of them before the first is written.
void TagsTab::keep(const TagWriteJob& job)
{
    if (!undo_ || job.rows.isEmpty()) return;
    undo_->clear();
    for (const TagWriteJob::Row& row : job.rows) {
        if (!goesOn(u"Keeping the tags as they are, for undoing..."_s)) return;
        if (!undo_->keep(row.path)) run_.unkept += row.path;
    }
}

void TagsTab::writeRows(const TagWriteJob& job)
{
    for (const TagWriteJob::Row& row : job.rows) {
        if (!goesOn(run_.progress())) return;
        const auto noted = qScopeGuard([&] {
            if (undo_) undo_->written(row.path);
        });
        writeRow(job, row);
    }
}

void TagsTab::undoWrite(Sender)
{
    if (!canUndoWrite()) return;
    isWriting_ = true;
    const TagUndo::Outcome outcome = undo_->undo([this] { goesOn(u"Putting the tags back..."_s); });
    const auto told = qScopeGuard([&] { endWork(outcome.sentence()); });
    showPutBack(outcome.putBack);
}

void TagsTab::showPutBack(const QStringList& files)
{
    const auto isBack = [&](const QString& file) { return files.contains(file); };
    if (std::any_of(shown_.begin(), shown_.end(), isBack)) tableViewSelectionDidChange();
}

void TagsTab::writeRow(const TagWriteJob& job, const TagWriteJob::Row& row)
{
    run_.files.append({row.path, u"This file is not tagged."_s});
    try {
        const TagsObject tags = job.recordFor(row);
        if (const TagRoute* const route = tagRouteFor(row.path))
            run_.files.last().refusal = route->write(row.path, tags, job.writesEmpty);
    } catch (const PlatformException& fault) {
        run_.files.last().refusal = fault.reason();
        run_.failed = true;
        throw;
    }
}

void TagsTab::trackNamesEntered(const Notification& notification)
{
    const auto* const entered = std::any_cast<QStringList>(&notification.object);
    names_ = entered ? *entered : QStringList();
    if (names_.isEmpty()) return;
    const auto source = notification.userInfo.find(u"source"_s);
    if (source == notification.userInfo.end() || source->second != CueSheetTagImporter::source) return;
    if (trackNamesWindow_) trackNamesWindow_->setNames(names_.join(u'\n') + u'\n');
    setAutoName(true);
    showNamesWindow(nullptr);
}

Outlets TagsTab::outlets() const
{
    Outlets all;
    for (std::size_t i = 0; i < tagFields().size(); ++i)
        all.push_back({tagFields()[i].outlet, this->*controls[i]});
    all.insert(all.end(), {{u"multipleSelectionsLabel"_s, multipleSelectionsLabel},
                           {u"albumArtImageView"_s, albumArtImageView},
                           {u"resultLabel"_s, resultLabel},
                           {u"autoNameButton"_s, autoNameButton},
                           {u"writeEmptyTagsButton"_s, writeEmptyTagsButton},
                           {u"customTagsButton"_s, customTagsButton},
                           {u"namesButton"_s, namesButton},
                           {u"cueSheetButton"_s, cueSheetButton}});
    return all;
}

WorkPlan TagsTab::workPlanWithout(const QList<qsizetype>& rows) const
{
    WorkPlan plan = BaseTab::workPlan();
    jobWithout(rows).tellIn(plan);
    return plan;
}

} // namespace zolt
