// Labels where the window goes from right to left.
#pragma once

class QWidget;

namespace zolt {

/// Puts the labels of a window on the side on which its lines begin. By itself a label goes by the direction of its own
/// words, and would stand across from the controls that it is about.
void keepLabelsOnTheirSide(QWidget& window);

} // namespace zolt
