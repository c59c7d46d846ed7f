#include "ui/TabOrder.h"

#include <QLayout>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>

namespace zolt {

namespace {

using Widgets = QList<QWidget*>;

Widgets partsOf(const QLayout& layout)
{
    Widgets parts;
    for (int index = 0; index < layout.count(); ++index) {
        QLayoutItem& item = *layout.itemAt(index);
        if (item.widget())
            parts += item.widget();
        else if (item.layout())
            parts += partsOf(*item.layout());
    }
    return parts;
}

/// What stands in the widget, in the order in which it is read.
Widgets partsOf(const QWidget& widget)
{
    if (const auto* const tabs = qobject_cast<const QTabWidget*>(&widget)) {
        Widgets parts{tabs->tabBar()};
        for (int index = 0; index < tabs->count(); ++index)
            parts += tabs->widget(index);
        return parts;
    }
    const auto* const area = qobject_cast<const QScrollArea*>(&widget);
    if (area && area->widget()) return {area->widget()};
    if (widget.layout()) return partsOf(*widget.layout());
    return widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
}

void collect(QWidget& widget, Widgets& stops)
{
    const bool isWhole = !qobject_cast<QTabWidget*>(&widget);
    if (isWhole && widget.focusPolicy() & Qt::TabFocus) {
        stops += &widget;
        return;
    }
    for (QWidget* const part : partsOf(widget))
        collect(*part, stops);
}

} // namespace

void orderTabsByLayout(QWidget& root)
{
    Widgets stops;
    collect(root, stops);
    for (qsizetype index = 1; index < stops.size(); ++index)
        QWidget::setTabOrder(stops[index - 1], stops[index]);
}

} // namespace zolt
