// The windows about track names and tags: names one a line, characters to be cut off, custom tags.
#pragma once

#include <QDialog>

class QPushButton;

namespace zolt {

class TrackNameInputController;
class ZOLTCustomTagsPanel;
class ZOLTTrimCharsPanel;

/// A text with one name a line. Main thread, as the two below.
class TrackNamesWindow : public QDialog
{
public:
    /// @param names  outlives this object's use
    explicit TrackNamesWindow(TrackNameInputController& names);

    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showUndo();

    TrackNameInputController& names_;
    QPushButton* undoButton_ = nullptr;
    QPushButton* redoButton_ = nullptr;
};

class TrimCharsDialog : public QDialog
{
public:
    /// @param panel  outlives this object's use
    explicit TrimCharsDialog(ZOLTTrimCharsPanel& panel);

    void accept() override;
    void reject() override;

private:
    ZOLTTrimCharsPanel& panel_;
};

/// Every way to close it takes what stands in it.
class CustomTagsDialog : public QDialog
{
public:
    /// @param panel  outlives this object's use
    explicit CustomTagsDialog(ZOLTCustomTagsPanel& panel);

    void accept() override { reject(); }
    void reject() override;

private:
    ZOLTCustomTagsPanel& panel_;
};

} // namespace zolt
