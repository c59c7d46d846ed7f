#include "shell/ZOLTStringGetterPanel.h"

#include "platform/desktop/Interfaces.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "shell/Log.h"

namespace zolt {

OptionalText ZOLTStringGetterPanel::runPanelWithTitleMessageInitialString(const OptionalText& title,
                                                                          const OptionalText& message,
                                                                          const OptionalText& initialString)
{
    okReturned_ = false;
    if (!panel_) loadPanel();
    if (title_) panel_->setTitle(textOrEmpty(title)); // kept: the field is looked at, which nothing assigns
    if (message) setMessage(message);
    if (initialString) setEnteredText(initialString);
    panel_->makeKeyAndOrderFront();
    panels().runModalForWindow(*panel_);
    panel_->orderOut();
    return okReturned_ ? enteredText_ : std::nullopt;
}

void ZOLTStringGetterPanel::loadPanel()
{
    panel_ = std::make_shared<Window>();
    textField->setAction([this] { controlTextDidChange(textField.get()); });
    loadInterface(QStringLiteral("StringGetterPanel"), this);
}

void ZOLTStringGetterPanel::ok(Sender)
{
    endRun(true);
}

void ZOLTStringGetterPanel::cancel(Sender)
{
    endRun(false);
}

void ZOLTStringGetterPanel::endRun(bool okReturned)
{
    okReturned_ = okReturned;
    panels().stopModal();
}

void ZOLTStringGetterPanel::setEnteredText(const OptionalText& text)
{
    enteredText_ = text;
    const QString shown = textOrEmpty(text);
    if (textField->stringValue() != shown) textField->setStringValue(shown); // a write would move the typist's cursor
}

void ZOLTStringGetterPanel::setMessage(const OptionalText& message)
{
    message_ = message;
    messageText->setStringValue(textOrEmpty(message));
}

void ZOLTStringGetterPanel::controlTextDidChange(const TextField* field)
{
    try {
        setEnteredText(field ? OptionalText(field->stringValue()) : std::nullopt);
    } catch (const PlatformException& exception) {
        qCInfo(shellLog).noquote() << "ex" << exception.reason();
    }
}

} // namespace zolt
