#include "app/batch/BatchPanels.h"

#include "app/batch/Console.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

/// True if a line can be read; false if the question is to be given up.
bool waitForAnswer(int interruptDescriptor)
{
    pollfd waited[2] = {{STDIN_FILENO, POLLIN, 0}, {interruptDescriptor, POLLIN, 0}};
    while (::poll(waited, 2, -1) < 0) {
        if (errno != EINTR) return false;
    }
    return waited[1].revents == 0;
}

QByteArray readLine()
{
    QByteArray line;
    for (char byte; ::read(STDIN_FILENO, &byte, 1) == 1 && byte != '\n';)
        line += byte;
    return line;
}

} // namespace

int BatchPanels::runAlert(const QString& title, const QString& message, const QString& defaultButton,
                          const QString& alternateButton, const QString&)
{
    const QString text = message.isEmpty() ? title : title + u' ' + message;
    if (alternateButton.isEmpty()) {
        complain(text);
        toldError_ = toldError_ || title == u"Error";
        return alertReply::defaultButton;
    }
    const bool yesIsDefault = defaultButton == u"Yes";
    return confirmed(text) == yesIsDefault ? alertReply::defaultButton : alertReply::alternateButton;
}

bool BatchPanels::confirmed(const QString& question) const
{
    if (answers_.yes) return true;
    if (answers_.terminal) return answeredYes(question);
    complain(question + u" Say so with --yes where no terminal can be asked."_s);
    return false;
}

bool BatchPanels::answeredYes(const QString& question) const
{
    print(stderr, question + u" [y/N] "_s);
    if (!waitForAnswer(answers_.interruptDescriptor)) return false;
    const QByteArray answer = readLine().trimmed().toLower();
    return answer == "y" || answer == "yes";
}

std::optional<QStringList> BatchPanels::openPanel(const OpenPanelRequest& request)
{
    if (!request.canChooseFiles || !answers_.file) return std::nullopt;
    return QStringList{*answers_.file};
}

OptionalText BatchPanels::savePanel(const SavePanelRequest&)
{
    return answers_.savePath;
}

} // namespace zolt::batch
