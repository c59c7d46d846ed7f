// A run of the Tags tab over many files against the helpers alone that it calls.
#pragma once

#include <QString>

namespace zolt::bench {

/// Prints milliseconds a file and the ratio, the best of several rounds.
void compareTabRun(const QString& sample);

} // namespace zolt::bench
