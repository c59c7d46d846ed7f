// Modules: parts of the program that bring many libraries with them, opened when they are first needed.
#pragma once

#include <QString>

namespace zolt {

/// Opens a module and finds its one entry; the module stays open. Any thread.
/// @param name         the module's file name
/// @param builtFolder  where the build leaves it; the module beside the installed program comes first
/// @return nothing where module or entry is missing, which is logged with the reason
void* moduleEntry(const QString& name, const QString& builtFolder, const char* entry);

} // namespace zolt
