#include "ui/panels/TrackNamesWindow.h"

#include "platform/errors/Exceptions.h"
#include "shntool/TrackNameInputController.h"
#include "shntool/ZOLTTrimCharsPanel.h"
#include "tags/ZOLTCustomTagsPanel.h"
#include "ui/TextSides.h"
#include "ui/WindowPlaces.h"
#include "ui/binding/Bindings.h"
#include "ui/binding/WindowBinding.h"
#include "ui_CustomTagsPanel.h"
#include "ui_TrackNameInputWindow.h"
#include "ui_TrimCharsPanel.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace zolt {

using namespace Qt::StringLiterals;

TrackNamesWindow::TrackNamesWindow(TrackNameInputController& names) : names_(names)
{
    Ui::TrackNameInputWindow form;
    form.setupUi(this);
    Bindings bindings(*this);
    bindings.setChanged([this] { showUndo(); });
    bindings.bind(u"inputText"_s, names.inputText);
    form.inputText->setUndoRedoEnabled(false); // one row of steps, for typing and for what is loaded or cut
    form.inputText->installEventFilter(this);
    undoButton_ = form.undoButton;
    redoButton_ = form.redoButton;
    const auto press = [this](QPushButton* button, auto work) {
        connect(button, &QPushButton::clicked, this, [work] { guarded("track names", work); });
    };
    press(form.loadButton, [&names] { names.loadTrackNamesFromFile(nullptr); });
    press(form.trimButton, [&names] { names.removeCharactersFromText(nullptr); });
    press(form.undoButton, [&names] { names.undoManager().undo(); });
    press(form.redoButton, [&names] { names.undoManager().redo(); });
    connect(form.buttons, &QDialogButtonBox::accepted, this,
            [&names] { guarded("track names", [&names] { names.inputOK(nullptr); }); });
    connect(form.buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form.buttons->button(QDialogButtonBox::Ok)->setToolTip(u"Take these names (Ctrl+Return)"_s);
    keepTextsOnTheirSide(*this);
    new WindowBinding(*this, names.window());
    fitToScreen(*this);
    showUndo();
}

void TrackNamesWindow::showUndo()
{
    const UndoManager& steps = names_.undoManager();
    undoButton_->setEnabled(steps.canUndo());
    redoButton_->setEnabled(steps.canRedo());
    undoButton_->setToolTip(steps.canUndo() ? u"Undo %1 (Ctrl+Z)"_s.arg(steps.undoActionName())
                                            : u"There is nothing to undo"_s);
    redoButton_->setToolTip(steps.canRedo() ? u"Redo %1 (Ctrl+Shift+Z)"_s.arg(steps.redoActionName())
                                            : u"There is nothing to redo"_s);
}

bool TrackNamesWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.matches(QKeySequence::Undo))
        guarded("undo", [this] { names_.undoManager().undo(); });
    else if (key.matches(QKeySequence::Redo))
        guarded("redo", [this] { names_.undoManager().redo(); });
    else if (key.key() == Qt::Key_Return && key.modifiers() == Qt::ControlModifier)
        guarded("track names", [this] { names_.inputOK(nullptr); });
    else
        return QDialog::eventFilter(watched, event);
    return true;
}

void TrackNamesWindow::reject()
{
    names_.inputCancel(nullptr);
}

TrimCharsDialog::TrimCharsDialog(ZOLTTrimCharsPanel& panel) : panel_(panel)
{
    Ui::TrimCharsPanel form;
    form.setupUi(this);
    Bindings bindings(*this);
    bindings.bind(u"numberField"_s, panel.numberField);
    bindings.bind(u"positionMatrix"_s, panel.positionMatrix);
    QWidget* last = form.numberField;
    for (auto* const cell : form.positionMatrix->findChildren<QAbstractButton*>()) { // made just now
        setTabOrder(last, cell);
        last = cell;
    }
    connect(form.buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(form.buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    keepTextsOnTheirSide(*this);
    new WindowBinding(*this, panel.panel());
}

void TrimCharsDialog::accept()
{
    guarded("characters to be cut", [this] { panel_.ok(nullptr); });
}

void TrimCharsDialog::reject()
{
    guarded("characters to be cut", [this] { panel_.cancel(nullptr); });
}

CustomTagsDialog::CustomTagsDialog(ZOLTCustomTagsPanel& panel) : panel_(panel)
{
    Ui::CustomTagsPanel form;
    form.setupUi(this);
    Bindings bindings(*this);
    for (const Outlet& outlet : panel.outlets())
        bindings.bind(outlet);
    connect(form.buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    keepTextsOnTheirSide(*this);
    new WindowBinding(*this, panel.panel());
    fitToScreen(*this);
}

void CustomTagsDialog::reject()
{
    guarded("custom tags", [this] { panel_.stop(nullptr); });
}

} // namespace zolt
