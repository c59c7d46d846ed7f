// A picture that takes one dropped file.
#pragma once

#include "platform/controls/ImageView.h"

#include <QStringList>

#include <optional>

namespace zolt {

class ZOLTDragAndDropImageView : public ImageView
{
public:
    static constexpr int noOperation = 0;
    static constexpr int copyOperation = 1;

    /// What would be done with what is dragged over the view: copyOperation for one file, noOperation for a directory,
    /// for several files and for what is no file. Main thread.
    /// @param filenames  the paths that are dragged; nothing if something else is dragged
    int draggingEntered(const std::optional<QStringList>& filenames) const;
};

} // namespace zolt
