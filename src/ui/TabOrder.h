// Where the Tab key goes.
#pragma once

class QWidget;

namespace zolt {

/// The Tab key goes through what stands in the widget as its layouts have it, row by row: by itself it would go by the
/// order in which widgets were made, and choices are made after the action beside them. Main thread.
void orderTabsByLayout(QWidget& root);

} // namespace zolt
