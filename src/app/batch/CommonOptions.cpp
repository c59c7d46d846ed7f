#include "app/batch/CommonOptions.h"

#include "platform/files/TextFile.h"
#include "shell/BaseTab.h"
#include "shell/Constants.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

QString textOfOption(const QString& path)
{
    const OptionalText text = readTextInThreeTries(path, UnreadableLine::PathTextAndReason);
    if (!text) throw UsageError{unreadableTextInWords(path)};
    return *text;
}

OptionSyntax outOption()
{
    return {u"out"_s, u"DIR"_s, {}, u"writes into DIR (otherwise beside each source)"_s};
}

OptionSyntax requiredOutOption()
{
    return {u"out"_s, u"DIR"_s, {}, u"writes into DIR; must be given"_s};
}

OptionSyntax shntoolFormatOption()
{
    return {u"format"_s,
            u"FORMAT"_s,
            {Constants::SHN, Constants::FLAC, Constants::AIFF, Constants::WAV},
            u"the format of what is written (otherwise FLAC)"_s};
}

OptionSyntax deleteOption()
{
    return {u"delete-originals"_s, {}, {}, u"deletes each source after its task has succeeded"_s};
}

bool setOutputFolder(BaseTab& tab, const BatchOptions& options)
{
    const bool given = options.has(u"out"_s);
    tab.setDestination(given ? OptionalText(options.value(u"out"_s)) : std::nullopt);
    return !given;
}

void requireOutputFolder(BaseTab& tab, const BatchOptions& options)
{
    if (setOutputFolder(tab, options)) throw UsageError{options.command + u" needs --out DIR"_s};
}

} // namespace zolt::batch
