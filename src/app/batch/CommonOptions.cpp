#include "app/batch/CommonOptions.h"

#include "shell/BaseTab.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

OptionSyntax outOption()
{
    return {u"out"_s, u"DIR"_s, {}, u"writes into DIR (otherwise beside each source)"_s};
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

} // namespace zolt::batch
