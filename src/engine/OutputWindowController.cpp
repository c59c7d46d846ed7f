#include "engine/OutputWindowController.h"

#include "platform/desktop/Interfaces.h"
#include "platform/threads/MainQueue.h"

namespace zolt {

OutputWindowController::OutputWindowController(ReportFacts facts)
    : window_(std::make_shared<Window>()),
      textField_(std::make_shared<TextView>()), font_{QStringLiteral("Courier"), 10.0}, facts_(std::move(facts))
{
}

void OutputWindowController::loadWindow()
{
    loadInterface(QStringLiteral("OutputWindow"), this);
}

void OutputWindowController::textAppend(const QString&) {}

void OutputWindowController::setTextValueTitle(const QString& text, const QString& title)
{
    textField_->setFont(font_);
    textField_->setString(text);
    window_->setTitle(title);
}

void OutputWindowController::showWindow()
{
    if (isMainThread()) return window_->makeKeyAndOrderFront();
    // Behind the building of its view, which is handed over too: a view that finds the window shown already comes up
    // where no place was told to it, and behind the others.
    postToMain([window = window_] { window->makeKeyAndOrderFront(); });
}

} // namespace zolt
