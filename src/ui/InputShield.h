// Keeps a person's keys and clicks from the windows while the main thread works.
#pragma once

#include <QObject>

class QWidget;

namespace zolt {

/// While it lives, input is dropped instead of being kept for later: nothing is pressed twice by who grew impatient. A
/// question that comes up meanwhile can be answered. Main thread.
class InputShield : public QObject
{
public:
    InputShield();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Paints the windows and does what is posted, and takes no input.
/// @param shown  is painted at once in any case; may be null
void repaintWithoutInput(QWidget* shown);

} // namespace zolt
