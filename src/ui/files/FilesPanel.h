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
    void addFiles();
    /// Marks rows of the list with a sign and a sentence. @param leftOut  rows that the next run leaves out
    void setMarks(const QHash<int, QString>& marks, const QList<qsizetype>& leftOut);
    /// Selects the rows and brings the first of them into sight, with the keyboard in the list.
    void selectRows(const QList<qsizetype>& rows);

    /// The tab's table has changed.
    void controlChanged(Control& control) override;
    FileListView& list() const;

private:
    void showMenu(const QPoint& place);
    void removeRows(const QList<qsizetype>& rows);
    void showColumns();
    void measure();
    QSet<QString> selectedFiles() const;
    void selectFiles(const QSet<QString>& files);
    void showFacts();

    const std::unique_ptr<Ui::FilesPanel> form_;
    FileListModel* const model_;
    BaseTab* tab_ = nullptr;
    std::shared_ptr<Table> table_;
    std::function<void()> changed_;
    LatestJob measuring_;
    QString facts_;
    int rowToKeep_ = -1;
};

} // namespace zolt
