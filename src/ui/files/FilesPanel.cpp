#include "ui/files/FilesPanel.h"

#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "shell/BaseTab.h"
#include "shell/ZOLTController.h"
#include "ui/Symbols.h"
#include "ui/binding/Binders.h"
#include "ui/bus/FileManager.h"
#include "ui/files/FileListModel.h"
#include "ui/files/ListFacts.h"
#include "ui_FilesPanel.h"

#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>

namespace zolt {

using namespace Qt::StringLiterals;

FilesPanel::FilesPanel(QWidget* parent)
    : QWidget(parent), form_(std::make_unique<Ui::FilesPanel>()), model_(new FileListModel(this))
{
    form_->setupUi(this);
    form_->addButton->setIcon(symbolIcon(u"list-add"_s));
    form_->clearButton->setIcon(symbolIcon(u"edit-clear"_s));
    FileListView& view = list();
    view.setModel(model_);
    view.setColumnHidden(model_->folderColumn(), true);
    view.header()->setVisible(false);
    view.header()->setStretchLastSection(true);
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    view.setDropHandler([this](const QStringList& paths) {
        tab_->tableViewAcceptDropRowDropOperation(paths, 0, BaseTab::copyOperation);
    });
    view.setRemoveHandler([this](const QList<qsizetype>& rows) { removeRows(rows); });
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, &view] { tellSelection(view, *table_); });
    connect(qApp, &QApplication::focusChanged, this, [this] { showFacts(); });
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { showFacts(); });
    connect(&view, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) { showMenu(place); });
    connect(form_->addButton, &QPushButton::clicked, this, [this] { addFiles(); });
    connect(form_->clearButton, &QPushButton::clicked, this, &FilesPanel::clear);
    connect(form_->filterField, &QLineEdit::textChanged, this, &FilesPanel::filter);
    form_->filterField->installEventFilter(this);
    view.viewport()->installEventFilter(this);
}

FilesPanel::~FilesPanel()
{
    if (table_) table_->setObserver(nullptr);
}

FileListView& FilesPanel::list() const
{
    return *form_->tableView;
}

void FilesPanel::attach(BaseTab& tab)
{
    tab_ = &tab;
    table_ = tab.tableView;
    list().setAcceptedExtensions(tab.zoltController->offeredExtensions(tab.tabViewItem->label()));
    table_->setObserver(this);
    controlChanged(*table_);
}

void FilesPanel::addFiles()
{
    guarded("add files", [this] { tab_->addButtonClick(nullptr); });
}

void FilesPanel::addFolders()
{
    OpenPanelRequest request;
    request.title = u"Choose folders for processing"_s;
    request.prompt = u"Add Folder"_s;
    request.canChooseFiles = false;
    request.canChooseDirectories = true;
    request.allowsMultipleSelection = true;
    guarded("add folder", [&] {
        if (const auto folders = panels().openPanel(request)) tab_->addFiles(*folders);
    });
}

void FilesPanel::selectAll()
{
    list().setFocus();
    list().selectAll();
}

void FilesPanel::removeSelected()
{
    list().removeSelected();
}

void FilesPanel::clear()
{
    guarded("clear", [this] { tab_->clearButtonClick(nullptr); });
}

void FilesPanel::removeDuplicates()
{
    QSet<QString> seen;
    QList<qsizetype> again;
    for (qsizetype row = 0; row < model_->files().size(); ++row) {
        if (seen.contains(model_->files()[row])) again += row;
        seen += model_->files()[row];
    }
    if (!again.isEmpty()) guarded("remove duplicates", [&] { tab_->removeRows(again); });
}

void FilesPanel::openFilter()
{
    form_->filterField->show();
    form_->filterField->setFocus();
    form_->filterField->selectAll();
}

bool FilesPanel::eventFilter(QObject* watched, QEvent* event)
{
    // Also where a scroll bar came or went.
    if (watched == list().viewport() && event->type() == QEvent::Resize) fitColumns();
    const bool escapes = watched == form_->filterField && event->type() == QEvent::KeyPress &&
                         static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (!escapes) return QWidget::eventFilter(watched, event);
    form_->filterField->clear();
    form_->filterField->hide();
    list().setFocus();
    return true;
}

void FilesPanel::filter()
{
    const QStringList words = form_->filterField->text().split(u' ', Qt::SkipEmptyParts);
    const QStringList& files = model_->files();
    shownFiles_ = 0;
    const QList<qsizetype> selected = list().selectedRowNumbers();
    QList<qsizetype> left; // what cannot be seen is neither written nor removed
    auto each = selected.begin();
    for (qsizetype row = 0; row < files.size(); ++row) {
        const bool shown = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return readableName(files[row]).contains(word, Qt::CaseInsensitive);
        });
        shownFiles_ += shown;
        if (list().isRowHidden(int(row), {}) == shown) list().setRowHidden(int(row), {}, !shown);
        if (each == selected.end() || *each != row) continue;
        if (shown) left += row;
        ++each;
    }
    if (left.size() < selected.size()) list().selectOnly(left);
    showFacts();
}

void FilesPanel::controlChanged(Control&)
{
    const QStringList files = tab_->fileNames().copy();
    FileListView& view = list();
    view.setAcceptDrops(table_->acceptsFileDrops());
    const int scrolled = view.verticalScrollBar()->value();
    const QSet<FileRow> selected = selectedFiles();
    const bool isAnother = files != model_->files();
    model_->setTable(*table_);
    model_->setFiles(files);
    selectFiles(selected);
    filter();
    showColumns();
    view.verticalScrollBar()->setValue(scrolled);
    if (const int row = std::min(std::exchange(rowToKeep_, -1), model_->rowCount() - 1); row >= 0)
        view.setCurrentIndex(model_->index(row, 0));
    tellSelection(view, *table_);
    // Equal numbers are other files now.
    if (isAnother) guarded("selection", [this] { table_->performAction(); });
    form_->clearButton->setEnabled(!files.isEmpty());
    measure();
    if (changed_) changed_();
}

void FilesPanel::showColumns()
{
    FileListView& view = list();
    const bool severalFolders = liesInSeveralFolders(model_->files());
    const int folder = model_->folderColumn();
    view.setColumnHidden(folder, !severalFolders);
    view.header()->setVisible(severalFolders || table_->showsHeader());
    for (int column = 1; column < folder; ++column) {
        view.setColumnHidden(column, false);
        view.resizeColumnToContents(column);
    }
    fitColumns();
}

/// Names and folders share what the tab's own columns leave, names first; where that is too little the list is
/// scrolled.
void FilesPanel::fitColumns()
{
    constexpr int leastCharacters = 16;
    FileListView& view = list();
    const int folder = model_->folderColumn(), shares = view.isColumnHidden(folder) ? 1 : 2;
    const bool grown = folder > 1;
    int left = view.viewport()->width();
    for (int column = 1; column < folder; ++column)
        left -= view.columnWidth(column);
    const int least = leastCharacters * view.fontMetrics().averageCharWidth();
    const bool fits = left >= shares * least;
    view.header()->setStretchLastSection(!grown);
    const int names = shares == 1 ? left : grown ? left / 2 : left * 3 / 5;
    for (const int column : {int(FileListModel::nameColumn), folder}) {
        view.header()->setSectionResizeMode(column, grown && fits ? QHeaderView::Stretch : QHeaderView::Interactive);
        const int wanted = column == FileListModel::nameColumn ? names : left - names;
        if (!grown || !fits) view.setColumnWidth(column, std::max(wanted, least));
    }
}

void FilesPanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    showFacts(); // cut to the room that there is now
}

void FilesPanel::measure()
{
    measuring_.start([this, files = model_->files()](const std::atomic<bool>& stop) {
        const ListFacts facts = gatherListFacts(files, stop);
        return [this, facts] {
            facts_ = listFactsText(facts);
            showFacts();
        };
    });
}

void FilesPanel::showFacts()
{
    // What the mark of the row says is told here too, for who has no mouse to point with.
    const QString mark = model_->mark(list().currentIndex().row());
    const bool filtered = shownFiles_ < model_->files().size();
    const QString facts = filtered ? u"%1 shown of %2"_s.arg(shownFiles_).arg(facts_) : facts_;
    const QString text = list().hasFocus() && !mark.isEmpty() ? mark : facts;
    const QString shown = form_->countLabel->fontMetrics().elidedText(text.section(u'\n', 0, 0), Qt::ElideRight,
                                                                      form_->countLabel->width());
    form_->countLabel->setText(shown);
    form_->countLabel->setToolTip(shown == text ? QString() : text);
}

FilesPanel::FileRow FilesPanel::fileAt(qsizetype row) const
{
    const QStringList& files = model_->files(); // sorted: equal ones stand side by side
    qsizetype above = 0;
    while (above < row && files[row - above - 1] == files[row])
        ++above;
    return {files[row], above};
}

QSet<FilesPanel::FileRow> FilesPanel::selectedFiles() const
{
    QSet<FileRow> files;
    for (const qsizetype row : list().selectedRowNumbers())
        files += fileAt(row);
    return files;
}

void FilesPanel::selectFiles(const QSet<FileRow>& files)
{
    if (files.isEmpty()) return;
    QList<qsizetype> rows;
    for (qsizetype row = 0; row < model_->files().size(); ++row) {
        if (files.contains(fileAt(row))) rows += row;
    }
    list().selectRowNumbers(rows);
}

void FilesPanel::setMarks(const QHash<int, QString>& marks, const QList<qsizetype>& leftOut)
{
    QSet<int> rows;
    for (const qsizetype row : leftOut)
        rows += int(row);
    model_->setMarks(marks, rows);
    showFacts();
}

void FilesPanel::selectRows(const QList<qsizetype>& rows)
{
    list().setFocus();
    list().selectRowNumbers(rows);
}

void FilesPanel::removeRows(const QList<qsizetype>& rows)
{
    rowToKeep_ = int(*std::min_element(rows.begin(), rows.end())); // the next row takes the place of those that go
    tab_->removeRows(rows);
}

void FilesPanel::copyPaths() const
{
    QStringList paths;
    for (const qsizetype row : list().selectedRowNumbers())
        paths += model_->files()[row];
    QApplication::clipboard()->setText(paths.join(u'\n'));
}

void FilesPanel::showMenu(const QPoint& place)
{
    const QModelIndex row = list().indexAt(place);
    const QString file = row.isValid() ? model_->files()[row.row()] : QString();
    QMenu menu(this);
    menu.addAction(u"&Remove from List"_s, this, [this] { list().removeSelected(); })->setEnabled(row.isValid());
    menu.addAction(u"Show in &Folder"_s, this, [file] { showInFolder(file); })->setEnabled(row.isValid());
    menu.addAction(u"&Copy Path"_s, this, [this] { copyPaths(); })->setEnabled(row.isValid());
    menu.addSeparator();
    menu.addAction(u"&Select All"_s, &list(), &QAbstractItemView::selectAll)->setEnabled(model_->rowCount() > 0);
    menu.exec(list().viewport()->mapToGlobal(place));
}

} // namespace zolt
