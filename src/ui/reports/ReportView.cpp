#include "ui/reports/ReportView.h"

#include "platform/files/FileNames.h"
#include "ui/OutcomeColours.h"

#include <QEvent>
#include <QTextBlock>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

class Margin : public QWidget
{
public:
    explicit Margin(ReportView& view) : QWidget(&view), view_(view) {}

protected:
    void paintEvent(QPaintEvent*) override { view_.paintMargin(*this); }

private:
    ReportView& view_;
};

} // namespace

ReportView::ReportView(QWidget* parent) : QPlainTextEdit(parent), margin_(new Margin(*this))
{
    setReadOnly(true);
    setLineWrapMode(NoWrap);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    connect(this, &QPlainTextEdit::updateRequest, margin_, [this](const QRect&, int dy) {
        if (dy != 0)
            margin_->scroll(0, dy);
        else
            margin_->update();
    });
}

void ReportView::setReport(const QString& report, const ReportNotes& notes)
{
    notes_.missing.clear();
    for (const QString& line : notes.missing)
        notes_.missing += readableName(line);
    setPlainText(readableName(report));
}

bool ReportView::isBad(const QTextBlock& line) const
{
    const LineVerdict verdict = verdictOfLine(line.text(), notes_);
    return verdict == LineVerdict::Bad || verdict == LineVerdict::Missing;
}

int ReportView::marginWidth() const
{
    return fontMetrics().horizontalAdvance(u"! "_s) + 6;
}

void ReportView::placeMargin()
{
    setViewportMargins(marginWidth(), 0, 0, 0);
    const QRect inside = contentsRect();
    margin_->setGeometry(inside.left(), inside.top(), marginWidth(), inside.height());
}

void ReportView::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    placeMargin();
}

void ReportView::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) placeMargin();
}

void ReportView::paintMargin(QWidget& margin)
{
    QPainter painter(&margin);
    painter.fillRect(margin.rect(), palette().color(QPalette::AlternateBase));
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(shownColour(Colour::failure(), palette()));
    QTextBlock block = firstVisibleBlock();
    // Counted on from the first: the view would walk there from its first line for each.
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && top <= margin.height(); block = block.next()) {
        if (!block.isVisible()) continue;
        if (isBad(block))
            painter.drawText(QRectF(0, top, margin.width(), fontMetrics().height()), Qt::AlignCenter, u"!"_s);
        top += blockBoundingRect(block).height();
    }
}

} // namespace zolt
