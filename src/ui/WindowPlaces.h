// Where windows stood when they were last seen.
#pragma once

#include <QString>
#include <QWidget>

namespace zolt {

/// Brings the window to where it was, if it was kept and still lies on a screen. @return false if nothing was kept
bool restorePlace(QWidget& window, const QString& name);

/// Keeps the window's place and size for the next start. Main thread.
void keepPlace(const QWidget& window, const QString& name);

/// Makes the window no larger than its screen and brings it inside, title bar and all; its smallest size gives way
/// where the screen has no room for it.
void fitToScreen(QWidget& window);

/// The window's size with the title bar that it has, or may still be given before it is shown.
QSize sizeOnScreen(const QWidget& window);

/// Shows the window above the others, also where it was minimised, and gives it the keyboard.
void bringToFront(QWidget& window);

/// Puts a window that was never placed beside the one that has the keyboard, on whichever side the
/// screen has room for it.
void placeBesideActive(QWidget& window);

} // namespace zolt
