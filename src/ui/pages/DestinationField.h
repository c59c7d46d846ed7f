// Where a page's outputs go, if not beside their sources: a folder, typed, chosen or dropped.
#pragma once

#include <QWidget>

#include <functional>

class QLineEdit;
class QPushButton;

namespace zolt {

/// Empty, the folder is asked for when the command starts. Main thread.
class DestinationField : public QWidget
{
public:
    explicit DestinationField(QWidget* parent = nullptr);

    /// The folder's full path; empty for none.
    QString folder() const;
    void setFolder(const QString& folder);
    /// Called with the folder after each change.
    void setChanged(std::function<void(const QString& folder)> changed) { changed_ = std::move(changed); }
    /// Whether the folder is not there: it can be made then by the button beside it.
    void setMissing(bool missing);
    /// Where the outputs go: to the folder, or the command asks for none.
    enum class Place { Folder, BesideSources, None };
    /// Greyed, with the reason as tool tip, unless it is the folder.
    void setPlace(Place place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void choose();
    void make();

    QLineEdit* const line_;
    QString exact_; ///< the folder that was set, whose name the line may show more readably
    QPushButton* const makeButton_;
    std::function<void(const QString&)> changed_;
};

} // namespace zolt
