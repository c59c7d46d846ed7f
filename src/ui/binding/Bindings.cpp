#include "ui/binding/Bindings.h"

#include "platform/errors/Exceptions.h"

namespace zolt {

using namespace Qt::StringLiterals;

QWidget& Bindings::widgetOf(const QString& outlet) const
{
    if (auto* const widget = page_.findChild<QWidget*>(outlet)) return *widget;
    throw AssertionException(u"The interface \"%1\" has no outlet \"%2\"."_s.arg(page_.objectName(), outlet));
}

void Bindings::bind(const Outlet& outlet)
{
    std::visit([&](const auto& model) { bind(outlet.name, model); }, outlet.model);
}

} // namespace zolt
