#include "ui/panels/TrackNamesWindow.h"

#include "platform/errors/Exceptions.h"
#include "shntool/TrackNameInputController.h"
#include "shntool/ZOLTTrimCharsPanel.h"
#include "tags/ZOLTCustomTagsPanel.h"
#include "ui/binding/Bindings.h"
#include "ui/binding/WindowBinding.h"
#include "ui_CustomTagsPanel.h"
#include "ui_TrackNameInputWindow.h"
#include "ui_TrimCharsPanel.h"

namespace zolt {

using namespace Qt::StringLiterals;

TrackNamesWindow::TrackNamesWindow(TrackNameInputController& names) : names_(names)
{
    Ui::TrackNameInputWindow form;
    form.setupUi(this);
    Bindings(*this).bind(u"inputText"_s, names.inputText);
    const auto press = [this](QPushButton* button, auto work) {
        connect(button, &QPushButton::clicked, this, [work] { guarded("track names", work); });
    };
    press(form.loadButton, [&names] { names.loadTrackNamesFromFile(nullptr); });
    press(form.trimButton, [&names] { names.removeCharactersFromText(nullptr); });
    press(form.undoButton, [&names] { names.undoManager().undo(); });
    connect(form.buttons, &QDialogButtonBox::accepted, this,
            [&names] { guarded("track names", [&names] { names.inputOK(nullptr); }); });
    connect(form.buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    new WindowBinding(*this, names.window());
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
    connect(form.buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(form.buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
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
    for (int count = 1; count <= ZOLTCustomTagsPanel::pairCount; ++count) {
        bindings.bind(u"customTagNameText%1"_s.arg(count), panel.nameText(count));
        bindings.bind(u"customTagValueText%1"_s.arg(count), panel.valueText(count));
    }
    connect(form.buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    new WindowBinding(*this, panel.panel());
}

void CustomTagsDialog::reject()
{
    guarded("custom tags", [this] { panel_.stop(nullptr); });
}

} // namespace zolt
