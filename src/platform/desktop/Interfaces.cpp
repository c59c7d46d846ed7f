#include "platform/desktop/Interfaces.h"

#include "platform/threads/MainQueue.h"

#include <QHash>

namespace zolt {

namespace {

QHash<QString, InterfaceBuilder>& builders()
{
    static QHash<QString, InterfaceBuilder> table; // main thread only
    return table;
}

void build(const QString& name, void* owner)
{
    if (const auto builder = builders().value(name)) builder(owner);
}

} // namespace

void installInterface(const QString& name, InterfaceBuilder builder)
{
    builders()[name] = std::move(builder);
}

void loadInterface(const QString& name, void* owner)
{
    if (isMainThread()) return build(name, owner);
    postToMain([name, owner] { build(name, owner); });
}

} // namespace zolt
