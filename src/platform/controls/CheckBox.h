// A box that is on or off.
#pragma once

#include "platform/controls/Control.h"

namespace zolt {

class CheckBox : public Control
{
public:
    explicit CheckBox(QString title = {}) : title_(std::move(title)) {}

    QString title() const { return read(title_); }
    void setTitle(const QString& title) { write(title_, title); }

    bool state() const { return state_; }
    void setState(bool on) { setFlag(state_, on); }

    /// What a person's click does: turns the box over and performs the action. Nothing on a disabled box. Main thread.
    void click();

private:
    QString title_;
    std::atomic<bool> state_ = false;
};

} // namespace zolt
