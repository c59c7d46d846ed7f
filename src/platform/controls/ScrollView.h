// What shows a part of something that is larger.
#pragma once

#include "platform/controls/Control.h"

#include <QRectF>

namespace zolt {

class ScrollView : public Control
{
public:
    /// Place and size on its page, in units; empty where the page gives it its place.
    QRectF frame() const { return read(frame_); }
    void setFrame(const QRectF& frame) { write(frame_, frame); }

    /// What it shows is drawn anew. Any thread.
    void display()
    {
        ++displays_;
        changed();
    }
    /// Counts the orders to draw.
    unsigned displays() const { return displays_; }

private:
    QRectF frame_;
    std::atomic<unsigned> displays_ = 0;
};

} // namespace zolt
