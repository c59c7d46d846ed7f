#include "tags/TagsTab.h"

#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "shell/Constants.h"
#include "shell/Wording.h"
#include "shell/ZOLTController.h"
#include "shntool/TrackNameInputController.h"
#include "tags/CueSheetTagImporter.h"
#include "tags/TagRoutes.h"

#include <QScopeGuard>

#include <span>

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

/// A control and the field of the record that it shows.
struct Field
{
    QString outlet;
    QString word; ///< for sentences
    std::shared_ptr<TextField> TagsTab::*control;
    const OptionalText& (TagsObject::*text)() const;
    void (TagsObject::*setText)(OptionalText);
};

/// Title and track first: they are for one file alone.
const std::vector<Field>& fields()
{
    using T = TagsTab;
    using R = TagsObject;
    static const std::vector<Field> all{
        {u"titleText"_s, u"title"_s, &T::titleText, &R::titleText, &R::setTitleText},
        {u"trackText"_s, u"track"_s, &T::trackText, &R::trackText, &R::setTrackText},
        {u"artistText"_s, u"artist"_s, &T::artistText, &R::artistText, &R::setArtistText},
        {u"dateText"_s, u"date"_s, &T::dateText, &R::dateText, &R::setDateText},
        {u"albumText"_s, u"album"_s, &T::albumText, &R::albumText, &R::setAlbumText},
        {u"discText"_s, u"disc"_s, &T::discText, &R::discText, &R::setDiscText},
        {u"commentText"_s, u"comment"_s, &T::commentText, &R::commentText, &R::setCommentText},
        {u"genreText"_s, u"genre"_s, &T::genreText, &R::genreText, &R::setGenreText},
        {u"composerText"_s, u"composer"_s, &T::composerText, &R::composerText, &R::setComposerText},
        {u"discTotalText"_s, u"discs"_s, &T::discTotalText, &R::discTotalText, &R::setDiscTotalText},
        {u"trackTotalText"_s, u"tracks"_s, &T::trackTotalText, &R::trackTotalText, &R::setTrackTotalText},
    };
    return all;
}

constexpr qsizetype fieldsOfOneFile = 2;

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
    tableView->setAction([this] { tableViewSelectionDidChange(); });
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

void TagsTab::fillTagsForSelectedRow()
{
    albumArtImageView->setImage(nullptr);
    const QString path = fileNames().at(tableView->selectedRow());
    const TagRoute* const route = tagRouteFor(path);
    const auto tags = route ? route->read(path) : std::make_shared<TagsObject>();
    artIsUnreadable_ = tags->artIsUnreadable();
    customTagsPanel_.clearTags();
    for (const Field& field : fields())
        (this->*field.control)->setStringValue(textOrEmpty(((*tags).*field.text)()));
    if (tags->albumArt()) albumArtImageView->setImage(tags->albumArt());
    if (!tags->customTagsDictionary().isEmpty()) customTagsPanel_.fillTags(tags->customTagsDictionary());
}

QString TagsTab::coverInWords() const
{
    const auto image = albumArtImageView->image();
    if (image) return u"%1 by %2 pixels"_s.arg(image->shown().pixelsWide()).arg(image->shown().pixelsHigh());
    if (artIsUnreadable_) return u"The file has a picture that cannot be shown here."_s;
    return u"No cover"_s;
}

void TagsTab::tableViewSelectionDidChange()
{
    artIsUnreadable_ = false;
    const qsizetype selected = tableView->numberOfSelectedRows();
    if (selected == 1) {
        fillTagsForSelectedRow();
    } else {
        for (const Field& field : fields())
            (this->*field.control)->setStringValue(QString());
        customTagsPanel_.clearTags();
        albumArtImageView->setImage(nullptr);
    }
    multipleSelectionsLabel->setStringValue(selected > 1 ? u"multiple selections"_s : QString());
    titleText->setEnabled(selected == 1);
    trackText->setEnabled(selected == 1);
}

bool TagsTab::hasEnoughNames() const
{
    const qsizetype selected = tableView->numberOfSelectedRows();
    if (selected <= 1 || !autoName() || names_.size() >= selected) return true;
    panels().runAlert(u"Error"_s, u"Number of selected files to tag is greater than number of track names entered"_s,
                      u"OK"_s);
    return false;
}

void TagsTab::executeCommand(Sender)
{
    const QStringList files = fileNames().copy();
    if (files.isEmpty()) return;
    const QList<qsizetype> rows = tableView->selectedRows();
    if (!rows.isEmpty() && !hasEnoughNames()) return;
    run_ = {.asked = rows.size()};
    // One dictionary for all records of the run.
    if (customTagsPanel_.customTagDictionary()) customTagsPanel_.fillTagsDictionary();
    const auto told = qScopeGuard([this] { resultLabel->setStringValue(run_.sentence()); });
    for (const qsizetype row : rows) {
        if (betweenFiles_ && row != rows.constFirst()) betweenFiles_();
        writeRow(files.at(row), row);
    }
    setAutoName(false);
}

void TagsTab::writeRow(const QString& path, qsizetype row)
{
    run_.files.append({path, u"This file is not tagged."_s});
    try {
        const TagsObject tags = recordFor(row);
        if (const TagRoute* const route = tagRouteFor(path))
            run_.files.last().refusal = route->write(path, tags, writeEmptyTags());
    } catch (const PlatformException& fault) {
        run_.files.last().refusal = fault.reason();
        run_.failed = true;
        throw;
    }
}

TagsObject TagsTab::recordFor(qsizetype row) const
{
    TagsObject tags;
    const bool isOne = tableView->numberOfSelectedRows() <= 1;
    for (const Field& field : std::span(fields()).subspan(isOne ? 0 : fieldsOfOneFile))
        (tags.*field.setText)((this->*field.control)->stringValue());
    if (!isOne && autoName()) name(tags, row);
    if (albumArtImageView->image()) tags.setAlbumArt(albumArtImageView->image());
    if (const auto& custom = customTagsPanel_.customTagDictionary()) tags.setCustomTagsDictionary(*custom);
    return tags;
}

/// Kept: by the row in the whole list, not by the place among the selected ones.
void TagsTab::name(TagsObject& tags, qsizetype row) const
{
    tags.setTitleText(pieceAt(names_, row));
    tags.setTrackText(QString::number(row + 1));
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
    for (const Field& field : fields())
        all.push_back({field.outlet, this->*field.control});
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

WorkPlan TagsTab::workPlan() const
{
    WorkPlan plan = BaseTab::workPlan();
    const QList<qsizetype> rows = tableView->selectedRows();
    for (const qsizetype row : rows)
        if (row < plan.files.size()) plan.items.push_back({.row = row, .source = plan.files.at(row)});
    plan.words = plan.items.empty() ? u"Select the files to be tagged"_s : wordsFor(qsizetype(plan.items.size()));
    if (writeEmptyTags())
        plan.cautions += u"Empty fields are emptied in the files; in FLAC files other tags and pictures go too."_s;
    if (writeEmptyTags() && artIsUnreadable_)
        plan.cautions += u"The picture that cannot be shown here is removed from the file."_s;
    if (albumArtImageView->image()) plan.cautions += u"FLAC and MP3 files keep the covers that they have beside it."_s;
    return plan;
}

/// "Write artist and album to 12 files".
QString TagsTab::wordsFor(qsizetype count) const
{
    QStringList words;
    if (count > 1 && autoName()) words = {u"title"_s, u"track"_s};
    for (const Field& field : std::span(fields()).subspan(count > 1 ? fieldsOfOneFile : 0))
        if (!(this->*field.control)->stringValue().isEmpty()) words += field.word;
    if (albumArtImageView->image()) words += u"cover"_s;
    if (words.isEmpty()) words += writeEmptyTags() ? u"empty fields"_s : u"nothing"_s;
    return u"Write %1 to %2"_s.arg(enumerated(words), counted(count, u"file"_s));
}

} // namespace zolt
