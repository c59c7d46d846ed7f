// Files dragged over windows, as a file manager does.
#pragma once

#include <QStringList>
#include <QWidget>

namespace zolt::test {

/// Drags the files over the widget. @return true if it would take them
bool dragOver(QWidget& target, const QStringList& paths);
/// The drag goes elsewhere.
void dragAway(QWidget& target);
/// Drags the files over the widget and drops them there, from a source that proposes to move them; returns when what
/// follows from it has run. @return what the target answered; Qt::IgnoreAction where it did not take them
Qt::DropAction dropOn(QWidget& target, const QStringList& paths);

} // namespace zolt::test
