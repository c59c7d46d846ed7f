#pragma once

namespace zolt::bench {

/// Prints what many rows cost the window program with its windows up: for how long it does not answer, how often it
/// draws, and what a row costs.
void printWindowCost();

} // namespace zolt::bench
