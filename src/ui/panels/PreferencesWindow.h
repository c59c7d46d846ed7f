// The preferences as a window: panes behind a toolbar.
#pragma once

#include "platform/controls/Control.h"

#include <QVariantAnimation>
#include <QWidget>

#include <memory>

class QToolButton;

namespace Ui {
class Preferences;
}

namespace zolt {

class PreferencesController;

/// Its model asks it for the frames of what stands on a pane, and it takes the height that the model works out of
/// them. Main thread.
class PreferencesWindow : public QWidget, public ControlObserver
{
public:
    /// @param preferences  outlives this object
    explicit PreferencesWindow(PreferencesController& preferences);
    ~PreferencesWindow() override;

    /// Another pane is in front, or another toolbar item is marked.
    void controlChanged(Control& control) override;

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void bindControls();
    void readyPanes();
    void readyToolbar();
    void fitNote();
    void comeUp();
    void tellFrame();
    void followFrame();

    const std::unique_ptr<Ui::Preferences> form_;
    PreferencesController& preferences_;
    QList<QToolButton*> buttons_;
    QVariantAnimation movement_;
};

} // namespace zolt
