// The right side of a page: its choices, scrolled where they find no room.
#pragma once

#include <QScrollArea>

namespace zolt {

/// As wide as the choices want to be, so that they scroll up and down alone, until half of the page is theirs.
/// Main thread.
class ChoicesArea : public QScrollArea
{
public:
    explicit ChoicesArea(QWidget* parent = nullptr);

    /// Lays a page's choices into this area. Labels with the property "heading" become headings, a control's label is
    /// greyed with it, and a control turns with the wheel only once it has the keyboard, so that scrolling past changes
    /// nothing. A spin box with the property "arrowsOnly" shows no number.
    /// @param setUp  fills the widget
    QWidget& fill(void (*setUp)(QWidget& choices));

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Keeps the choices off their scroll bar while it is there.
    void keepGap(bool scrolls);
    void tend(QWidget& child);
    bool isPassedBy(const QObject& watched) const;
};

} // namespace zolt
