#include "tags/DifferingFields.h"

#include "platform/errors/Exceptions.h"
#include "tags/TagFields.h"
#include "tags/TagRoutes.h"

namespace zolt {

namespace {

std::shared_ptr<const TagsObject> tagsOf(const QString& path)
{
    std::shared_ptr<const TagsObject> tags;
    if (const TagRoute* const route = tagRouteFor(path)) guarded("tags", [&] { tags = route->read(path); });
    return tags;
}

} // namespace

QSet<QString> differingFields(const QStringList& files, const std::atomic<bool>& stop)
{
    QSet<QString> outlets;
    std::shared_ptr<const TagsObject> first;
    for (const QString& file : files) {
        if (stop || outlets.size() == qsizetype(tagFields().size())) break;
        const auto tags = tagsOf(file);
        if (!tags) continue;
        if (!first) first = tags;
        for (const TagField& field : tagFields())
            if (field.textOf(*tags) != field.textOf(*first)) outlets += field.outlet;
    }
    return outlets;
}

} // namespace zolt
