// Has what is started next load the object that shows files to shntool.
#pragma once

namespace zolt::companion {

/// Puts the object that stands beside the folder of this program first into LD_PRELOAD of this process; the object
/// takes itself out again where it is loaded. Without the object nothing changes.
void preloadObject();

} // namespace zolt::companion
