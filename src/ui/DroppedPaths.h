// The files that a drag brings.
#pragma once

#include <QStringList>

class QDropEvent;
class QMimeData;

namespace zolt {

/// The full paths of the local files and folders, without slashes at their ends; empty where there are none.
QStringList droppedPaths(const QMimeData& data);

/// Takes the event, whatever its source proposed, as a copy: a source that moves deletes its files afterwards.
void acceptAsCopy(QDropEvent& event);

} // namespace zolt
