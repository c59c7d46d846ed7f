#include "engine/StatusQueueCell.h"

namespace zolt {

StatusQueueCell::Places StatusQueueCell::drawInteriorWithFrameInView(const QRectF& frame) const
{
    const double x = frame.x(), y = frame.y(), lineWidth = frame.width() - 40;
    const double image = cancelButton_ ? cancelButton_->style().imageSize : 0.0;
    return {.progressIndicator = {x, y + 21, lineWidth, 15},
            .textField = {x, y + 4, lineWidth, 18},
            .topTextField = {x, y + 36, lineWidth, 10},
            .cancelButton = {frame.width() - 25, y + 21, image, image}};
}

} // namespace zolt
