#include "ui/LabelSides.h"

#include <QLabel>
#include <QStyle>

namespace zolt {

void keepLabelsOnTheirSide(QWidget& window)
{
    for (QLabel* const label : window.findChildren<QLabel*>())
        label->setAlignment(QStyle::visualAlignment(label->layoutDirection(), label->alignment()));
}

} // namespace zolt
