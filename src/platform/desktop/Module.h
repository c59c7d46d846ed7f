// Modules: parts of the program that bring many libraries with them, opened when they are first needed.
#pragma once

#include <QString>

namespace zolt {

/// Opens a module and finds its one entry; the module stays open. Any thread.
/// @param name         the module's file name
/// @param builtFolder  where the build leaves it; the module beside the installed program comes first
/// @return nothing where module or entry is missing, which is logged with the reason
void* moduleEntry(const QString& name, const QString& builtFolder, const char* entry);

/// What the entry of a module gives out; as moduleEntry.
/// @tparam Interface  what the entry returns a pointer to
template <class Interface>
const Interface* openModule(const QString& name, const QString& builtFolder, const char* entry)
{
    void* const found = moduleEntry(name, builtFolder, entry);
    return found ? reinterpret_cast<const Interface* (*)()>(found)() : nullptr;
}

} // namespace zolt
