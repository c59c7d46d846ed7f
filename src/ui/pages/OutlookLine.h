// The quiet line left of the action: what will happen, and what stands against it.
#pragma once

#include "shell/Outlook.h"

#include <QWidget>

#include <functional>

class QPushButton;

namespace zolt {

/// One line for the intention, two for one of the problems with what can be done about it. Always as high, so that
/// nothing moves when a problem comes or goes. Main thread.
class OutlookLine : public QWidget
{
public:
    using Rows = QList<qsizetype>;

    explicit OutlookLine(QWidget* parent = nullptr);

    /// @param leftOut  how many files a person has left out of what the outlook tells
    void show(const Outlook& outlook, qsizetype leftOut = 0);
    /// What stands there, for tests and for readers aloud.
    QString text() const;

    /// Called with the rows of a problem when a person wants the rest to start without them.
    void setLeaveOut(std::function<void(const Rows&)> leaveOut) { leaveOut_ = std::move(leaveOut); }
    /// Called when a person takes back those that were left out.
    void setTakeBack(std::function<void()> takeBack) { takeBack_ = std::move(takeBack); }
    /// Called with the rows of a problem when a person wants to see them.
    void setShowRows(std::function<void(const Rows&)> showRows) { showRows_ = std::move(showRows); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QPushButton* button(const QString& name, const QString& text, const QString& toolTip, void (OutlookLine::*press)());
    const OutlookProblem* problem() const;
    void leaveOut();
    void takeBack();
    void showRows();
    void next();
    void refresh();
    void placeButtons();
    int lineHeight() const;

    Outlook outlook_;
    qsizetype leftOut_ = 0;
    std::size_t shown_ = 0; ///< which of the problems
    std::function<void(const Rows&)> leaveOut_;
    std::function<void()> takeBack_;
    std::function<void(const Rows&)> showRows_;
    QPushButton* const leaveOutButton_;
    QPushButton* const showButton_;
    QPushButton* const nextButton_;
    QPushButton* const takeBackButton_;
    int textRoom_ = 0; ///< units of width beside the buttons
};

} // namespace zolt
