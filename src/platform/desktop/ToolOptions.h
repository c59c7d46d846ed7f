// Whether a tool knows an option. Any thread.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt {

/// Runs the tool once with the arguments by which it lists its options, and waits for its end, a few seconds at most.
/// The answer is kept as long as the file stays the same.
/// @param option  looked for as a word of what it prints on either stream
bool knowsOption(const QString& tool, const QStringList& question, const QString& option);

} // namespace zolt
