#include "ui/pages/TagsPage.h"

#include "tags/DifferingFields.h"
#include "tags/TagFields.h"
#include "tags/TagsTab.h"
#include "ui/HintWhereDisabled.h"
#include "ui/InputShield.h"
#include "ui/files/FilesPanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QStandardPaths>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString undoFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/zolt/undo"_s;
}

/// In the field's place, since the field itself stays empty: what is in it is written.
void mark(QWidget& field, const QString& words)
{
    showHintWhereDisabled(field);
    if (auto* const line = qobject_cast<QLineEdit*>(&field)) line->setPlaceholderText(words);
    if (auto* const box = qobject_cast<QPlainTextEdit*>(&field)) box->setPlaceholderText(words);
    field.setAccessibleDescription(words);
}

} // namespace

TagsPage::TagsPage(TagsTab& tab, const PageForm& form, QWidget* parent) : CommandPage(tab, form, parent), tagsTab_(tab)
{
    tab.setUndoFolder(undoFolder());
    tab.setBetweenFiles([this] { return repaint(); });
    tab.setFollower([this] { follow(); });
    withLiveLine(u"coverFacts"_s,
                 [&tab] { return [text = tab.coverInWords()](const std::atomic<bool>&) { return text; }; });
}

TagsPage::~TagsPage()
{
    tagsTab_.setBetweenFiles({});
    tagsTab_.setFollower({});
}

QString TagsPage::whatIsWanted() const
{
    const QString wanted = CommandPage::whatIsWanted();
    const bool isChosen = !wanted.isEmpty() || !tagsTab_.selectedFiles().isEmpty();
    return isChosen ? wanted : u"Select the files to be written first"_s;
}

bool TagsPage::repaint()
{
    auto* const result = choices().findChild<QLabel*>(u"resultLabel"_s);
    if (result) result->setText(tagsTab_.resultLabel->stringValue()); // not behind all else that is posted
    showResult();
    repaintWithoutInput(result);
    return true;
}

/// Brings what is said of the run into sight, where the choices are scrolled.
void TagsPage::showResult()
{
    auto* const area = findChild<QScrollArea*>(u"choicesArea"_s);
    auto* const result = choices().findChild<QWidget*>(u"resultLabel"_s);
    if (area && result && !tagsTab_.resultLabel->stringValue().isEmpty()) area->ensureWidgetVisible(result);
}

void TagsPage::follow()
{
    refresh();
    lookForDifferences();
    showResult();
    if (!tagsTab_.resultLabel->stringValue().isEmpty()) files()->measure(); // a run has changed their sizes
}

void TagsPage::lookForDifferences()
{
    markFields({});
    reading_.cancel();
    const QStringList files = tagsTab_.selectedFiles();
    if (files.size() < 2 || tagsTab_.isWriting()) return;
    reading_.start([this, files](const std::atomic<bool>& stop) {
        const QSet<QString> outlets = differingFields(files, stop);
        return [this, outlets] { markFields(outlets); };
    });
}

void TagsPage::markFields(const QSet<QString>& outlets)
{
    for (const TagField& field : tagFields()) {
        if (auto* const widget = choices().findChild<QWidget*>(field.outlet))
            mark(*widget, outlets.contains(field.outlet) ? u"differs"_s : QString());
    }
}

} // namespace zolt
