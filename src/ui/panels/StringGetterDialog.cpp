#include "ui/panels/StringGetterDialog.h"

#include "platform/errors/Exceptions.h"
#include "shell/ZOLTStringGetterPanel.h"
#include "ui/TextSides.h"
#include "ui/binding/Bindings.h"
#include "ui/binding/WindowBinding.h"
#include "ui_StringGetterPanel.h"

namespace zolt {

using namespace Qt::StringLiterals;

StringGetterDialog::StringGetterDialog(ZOLTStringGetterPanel& panel)
    : form_(std::make_unique<Ui::StringGetterPanel>()), panel_(panel)
{
    form_->setupUi(this);
    Bindings bindings(*this);
    bindings.bind(u"messageText"_s, panel.messageText);
    bindings.bind(u"textField"_s, panel.textField);
    connect(form_->buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(form_->buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    keepTextsOnTheirSide(*this);
    new WindowBinding(*this, panel.panel());
}

StringGetterDialog::~StringGetterDialog() = default;

void StringGetterDialog::accept()
{
    guarded("string panel", [this] { panel_.ok(nullptr); });
}

void StringGetterDialog::reject()
{
    guarded("string panel", [this] { panel_.cancel(nullptr); });
}

void StringGetterDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    form_->textField->setFocus();
    form_->textField->selectAll();
}

} // namespace zolt
