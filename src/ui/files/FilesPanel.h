// A tab's files: the list, its buttons, and what it amounts to.
#pragma once

#include "platform/controls/Table.h"
#include "ui/LatestJob.h"

#include <QHash>
#include <QSet>
#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class FilesPanel;
}

namespace zolt {

class BaseTab;
class FileListModel;
class FileListView;

/// The left side of every tab with a list. Main thread.
class FilesPanel : public QWidget, public ControlObserver
{
public:
    explicit FilesPanel(QWidget* parent = nullptr);
    ~FilesPanel() override;

    /// Shows the tab's list from now on. @param tab  outlives this object's use
    void attach(BaseTab& tab);
    /// Called after the list has changed and is shown.
    void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }
    // What the menus do with the list.
    void addFiles();
    void addFolders();
    void selectAll();
    void removeSelected();
    /// Takes out all but the first of each path.
    void removeDuplicates();
    void clear();
    /// Shows the line that has the list show only files with these words in their path; Escape in it shows all again.
    void openFilter();

    /// Adds up the files' sizes anew, beside the main thread; the list itself does that whenever it changes.
    void measure();
    /// Gives up what is found out about the files beside the main thread.
    void stopLookingUp() { measuring_.cancel(); }

    /// Marks rows of the list with a sign and a sentence. @param leftOut  rows that the next run leaves out
    void setMarks(const QHash<int, QString>& marks, const QList<qsizetype>& leftOut);
    /// Selects the rows and brings the first of them into sight, with the keyboard in the list.
    void selectRows(const QList<qsizetype>& rows);

    /// The tab's table has changed.
    void controlChanged(Control& control) override;
    FileListView& list() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showMenu(const QPoint& place);
    void copyPaths() const;
    void removeRows(const QList<qsizetype>& rows);
    void showColumns();
    void fitColumns();
    /// A file, and how many rows of the same file stand above its own.
    using FileRow = std::pair<QString, qsizetype>;
    FileRow fileAt(qsizetype row) const;
    QSet<FileRow> selectedFiles() const;
    void selectFiles(const QSet<FileRow>& files);
    void showFacts();
    void filter();
    bool eventFilter(QObject* watched, QEvent* event) override;

    const std::unique_ptr<Ui::FilesPanel> form_;
    FileListModel* const model_;
    BaseTab* tab_ = nullptr;
    std::shared_ptr<Table> table_;
    std::function<void()> changed_;
    LatestJob measuring_;
    QString facts_;
    qsizetype shownFiles_ = 0;
    int rowToKeep_ = -1;
};

} // namespace zolt
