// The codec libraries as this program uses them.
#pragma once

namespace zolt {

/// Sets what is global to the libraries: their silence, and a bound on the memory that a damaged file can make them
/// ask for. Cheap to call again; any thread.
void prepareCodecLibraries();

} // namespace zolt
