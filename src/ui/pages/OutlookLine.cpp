#include "ui/pages/OutlookLine.h"

#include "ui/Symbols.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int lines = 3;

} // namespace

OutlookLine::OutlookLine(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(u"What will happen"_s);
}

void OutlookLine::show(const QString& intention, const QStringList& problems)
{
    intention_ = intention;
    problems_ = problems;
    setToolTip((QStringList(intention) + problems).join(u"\n\n"_s).trimmed());
    setAccessibleDescription(text());
    update();
}

QString OutlookLine::problemLine() const
{
    if (problems_.size() < 2) return problems_.join(QString());
    return u"%1 (and %2 more: point here)"_s.arg(problems_.first()).arg(problems_.size() - 1);
}

QString OutlookLine::text() const
{
    return (QStringList(intention_) + problems_).join(u'\n').trimmed();
}

QSize OutlookLine::sizeHint() const
{
    return {320, lines * fontMetrics().lineSpacing() + 2};
}

QSize OutlookLine::minimumSizeHint() const
{
    return {160, sizeHint().height()};
}

void OutlookLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int line = fontMetrics().lineSpacing();
    painter.setPen(palette().color(QPalette::WindowText));
    // Alone it stands at the height of the button beside it, over a problem at the top.
    const QRect top(0, problems_.isEmpty() ? height() - line - line / 4 : 0, width(), line);
    painter.drawText(top, int(Qt::AlignLeft) | int(Qt::AlignVCenter),
                     fontMetrics().elidedText(intention_, Qt::ElideRight, width()));
    if (problems_.isEmpty()) return;
    painter.setRenderHint(QPainter::Antialiasing);
    paintSymbol(painter, u"dialog-warning"_s, QRectF(0, line, line, line), palette().color(QPalette::WindowText));
    painter.drawText(QRect(line + 4, line, width() - line - 4, height() - line),
                     int(Qt::AlignLeft) | int(Qt::AlignTop) | int(Qt::TextWordWrap), problemLine());
}

} // namespace zolt
