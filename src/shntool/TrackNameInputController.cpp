#include "shntool/TrackNameInputController.h"

#include "platform/desktop/Interfaces.h"
#include "platform/desktop/Panels.h"
#include "platform/files/TextFile.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"
#include "shntool/TrackNameList.h"
#include "shntool/ZOLTTrimCharsPanel.h"

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

/// The lines without so many characters at one of their ends, each with a line end.
QString cutLines(const QString& text, const TrimCharsObject& cut)
{
    QString result;
    const QStringList lines = splitIntoLines(text);
    for (const QString& line : lines) {
        if (line.size() < cut.number()) continue;
        result +=
            cut.position() == 0 ? substringFrom(line, cut.number()) : substringTo(line, line.size() - cut.number());
        result += u'\n';
    }
    return result;
}

/// The result ends its last line itself.
QString withoutFirstLineEnd(const QString& text)
{
    return text.startsWith(u'\n') ? text.sliced(1) : text;
}

} // namespace

TrackNameInputController::TrackNameInputController()
{
    inputText->setAction([this] { typed(); });
}

OptionalText TrackNameInputController::chooseTrackNamesFile() const
{
    const auto chosen = panels().openPanel({.title = u"Choose file with track names"_s});
    if (!chosen || chosen->isEmpty()) return std::nullopt;
    return chosen->constFirst();
}

void TrackNameInputController::loadTrackNamesFromFile(Sender)
{
    if (const OptionalText path = chooseTrackNamesFile())
        loadTrackNamesFromPath(*path);
    else
        setInputTextString(QString());
}

void TrackNameInputController::loadTrackNamesFromPath(const QString& path)
{
    const OptionalText text = readTextInThreeTries(path, UnreadableLine::PathTextAndReason);
    if (text) setInputTextString(trackNamesIn(*text));
}

void TrackNameInputController::setInputTextString(const QString& text)
{
    replaceText(text, u"Trim Text"_s);
}

void TrackNameInputController::setNames(const QString& names)
{
    replaceText(names, u"Set Track Name Text"_s);
}

void TrackNameInputController::replaceText(const QString& text, const QString& actionName)
{
    undoManager_.registerUndo([this, before = inputText->string()] { setInputTextString(before); });
    if (!undoManager_.isUndoing()) undoManager_.setActionName(actionName);
    inputText->setString(text);
    standing_ = text;
    isTyping_ = false;
}

/// What a person types is undone like what is replaced, a line or a paste at a time: nothing typed is lost to it.
void TrackNameInputController::typed()
{
    const QString before = std::exchange(standing_, inputText->string());
    const bool isOneLetter = std::abs(standing_.size() - before.size()) == 1;
    const bool goesOn = isTyping_ && isOneLetter && standing_.count(u'\n') == before.count(u'\n');
    isTyping_ = true;
    if (goesOn) return;
    undoManager_.registerUndo([this, before] { setInputTextString(before); });
    undoManager_.setActionName(u"Typing"_s);
}

void TrackNameInputController::clear()
{
    standing_.clear();
    isTyping_ = false;
    inputText->setString(QString());
}

void TrackNameInputController::removeCharactersFromText(Sender)
{
    const auto cut = ZOLTTrimCharsPanel().runPanel();
    if (!cut || cut->number() == 0) return;
    const TextSelection selected = inputText->selectedRange();
    if (selected.length == 0) return;
    const QString text = inputText->string();
    const QString changed = cutLines(text.mid(selected.location, selected.length), *cut);
    const QString behind = text.mid(selected.location + selected.length);
    setInputTextString(text.first(std::min(selected.location, text.size())) + changed + withoutFirstLineEnd(behind));
}

void TrackNameInputController::inputOK(Sender)
{
    inputCancel(nullptr);
    QStringList names = splitIntoLines(inputText->string());
    names.removeIf([](const QString& line) { return line.isEmpty(); });
    NotificationCenter::standard().post({Constants::ZOLTTrackNamesEnteredNotification, this, names});
}

void TrackNameInputController::inputCancel(Sender)
{
    if (window_) window_->orderOut();
}

void TrackNameInputController::loadWindow()
{
    window_ = std::make_shared<Window>();
    window_->setTitle(u"Track Names"_s);
    loadInterface(u"TrackNameInputWindow"_s, this);
}

void TrackNameInputController::showWindow(Sender)
{
    if (!isWindowLoaded()) loadWindow();
    window_->makeKeyAndOrderFront();
}

} // namespace zolt
