#include "shntool/SHNToolProgressTask.h"

#include "platform/text/Scanner.h"

namespace zolt {

using namespace Qt::StringLiterals;

void SHNToolProgressTask::setUpProgressTask(ZOLTTaskQueue* queue, const QString& launchPath,
                                            const QStringList& arguments, const QString& name)
{
    setUpAsyncTask(queue, launchPath, arguments);
    textField()->setStringValue(name);
}

void SHNToolProgressTask::processTaskOutput(const OptionalText& output)
{
    lookAtHead(trimmed(textOrEmpty(output), CharacterSet::Backspace));
    grammar_.follow(output, *this, subject());
}

OptionalText SHNToolProgressTask::showFileName(const QString& text, const FileNaming& naming) const
{
    const auto stands = [&text](const QString& head) { return text.contains(head); };
    if (!text.contains(u"] ("_s) || std::none_of(naming.heads.begin(), naming.heads.end(), stands)) return std::nullopt;
    Scanner scanner(text);
    QString name;
    scanner.scanUpTo(u"["_s);
    scanner.scanUpTo(naming.end, &name);
    name = path::lastComponent(name);
    textField()->setStringValue(name);
    return name;
}

void SHNToolProgressTask::cleanup()
{
    if (!error()) setResults(nullptr);
}

} // namespace zolt
