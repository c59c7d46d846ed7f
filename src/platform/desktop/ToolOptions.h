// What a tool answers when it is asked about itself. Any thread, but one that may stand still meanwhile.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt {

/// Runs the tool with these arguments and waits for its end, a few seconds at most.
/// @return what it printed on either stream
QByteArray toolAnswer(const QString& tool, const QStringList& question);

/// Runs the tool once with the arguments by which it lists its options, and waits for its end, a few seconds at most.
/// The answer is kept as long as the file stays the same.
/// @param option  looked for as a word of what it prints on either stream
bool knowsOption(const QString& tool, const QStringList& question, const QString& option);

} // namespace zolt
