// The two streams of a headless run. Main thread.
#pragma once

#include <QString>

#include <cstdio>

namespace zolt::batch {

/// The text on one line: control characters, line ends among them, spelled as C does ("\n", "\x1b").
QString onOneLine(const QString& text);

/// Writes UTF-8 at once. A stream that takes nothing any more is passed over: the work goes on.
void print(std::FILE* stream, const QString& text);

/// Whether something did not get to standard output, such as a file on a full disk, which is complained of once. A
/// reader who has gone away has had enough: that loses nothing.
bool isOutputLost();

/// Writes "zolt-batch: TEXT" and a line end to standard error.
void complain(const QString& text);

} // namespace zolt::batch
