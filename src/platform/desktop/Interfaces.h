// Named interface descriptions: the seam by which a window's logic gets its view, if the front end has one.
#pragma once

#include <QString>

#include <functional>

namespace zolt {

/// Builds the view of an object that loaded the description; runs on the main thread. The owner's class goes with the
/// description's name.
using InterfaceBuilder = std::function<void(void* owner)>;

/// Has `builder` run whenever the description of that name is loaded; an empty builder takes it away. Main thread.
void installInterface(const QString& name, InterfaceBuilder builder);

/// Loads the description with `owner`; nothing happens where the front end has none of that name. Any thread: off the
/// main thread the building is handed over.
/// @param owner  outlives its interface
void loadInterface(const QString& name, void* owner);

} // namespace zolt
