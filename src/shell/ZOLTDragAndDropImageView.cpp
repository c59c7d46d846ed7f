#include "shell/ZOLTDragAndDropImageView.h"

#include "platform/files/Files.h"

namespace zolt {

int ZOLTDragAndDropImageView::draggingEntered(const std::optional<QStringList>& filenames) const
{
    const bool oneFile = filenames && filenames->size() == 1 && !isDirectory(filenames->first());
    return oneFile ? copyOperation : noOperation;
}

} // namespace zolt
