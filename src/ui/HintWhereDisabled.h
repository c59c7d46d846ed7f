// What stands in a field that cannot be typed in now.
#pragma once

#include <QPalette>
#include <QWidget>

namespace zolt {

/// The field's hint is as readable as in other fields while it is disabled, too: there it says why.
inline void showHintWhereDisabled(QWidget& field)
{
    QPalette palette = field.palette();
    palette.setColor(QPalette::Disabled, QPalette::PlaceholderText,
                     palette.color(QPalette::Active, QPalette::PlaceholderText));
    field.setPalette(palette);
}

} // namespace zolt
