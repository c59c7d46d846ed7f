// What lies behind one tab.
#pragma once

#include "platform/controls/Control.h"

#include <QRectF>

#include <vector>

namespace zolt {

/// The space of a tab with its subviews. Main thread.
class Pane : public Control
{
public:
    using Frames = std::vector<QRectF>;

    /// Where the subviews stand within the pane, in units; none where no front end shows the pane.
    Frames subviewFrames() const { return measure_ ? measure_() : Frames(); }
    /// @param measure  what a front end answers that with; empty for nobody
    void setMeasure(std::function<Frames()> measure) { measure_ = std::move(measure); }

private:
    std::function<Frames()> measure_;
};

} // namespace zolt
