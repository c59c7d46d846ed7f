// Runs as texts: in a line, as a list, as a table for other programs. Any thread.
#pragma once

#include "engine/Run.h"

#include <QString>

namespace zolt {

/// "28 OK, 2 failed, 0:07"; what is none is left out.
QString shortWords(const Run& run);

/// One row a line, with the reports behind them, each under its title.
QString runAsText(const Run& run);

/// One row a line as comma-separated values under a line of headers, each value in quotes.
QString runAsCsv(const Run& run);

/// The reports of the run, each under its title; empty where there is none.
QString reportsOf(const Run& run);

} // namespace zolt
