// Models of controls: what the program knows of a text field, a button, a bar. A front end shows them; logic and tests
// need none.
#pragma once

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

namespace zolt {

class Control;

/// A front end's view of a control.
class ControlObserver
{
public:
    virtual ~ControlObserver() = default;
    /// The control has changed, once or several times, since the last call. Main thread, in the order of first change.
    virtual void controlChanged(Control& control) = 0;
};

/// A write from any thread stores the value under a short mutex and posts one change to the main thread, however many
/// writes follow before it is delivered; a reader on any thread sees the last value written. Held by shared pointers.
class Control : public std::enable_shared_from_this<Control>
{
public:
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden) { setFlag(hidden_, hidden); }
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled) { setFlag(enabled_, enabled); }

    /// Whether the control stands on a window or table; a row's controls leave theirs when the row is dropped.
    bool hasSuperview() const { return hasSuperview_; }
    void addToSuperview() { setFlag(hasSuperview_, true); }
    void removeFromSuperview() { setFlag(hasSuperview_, false); }

    QString toolTip() const { return read(toolTip_); }
    void setToolTip(const QString& toolTip) { write(toolTip_, toolTip); }

    /// A number that tells controls with one action apart, such as a tab's index.
    int tag() const { return tag_; }
    void setTag(int tag) { tag_ = tag; }

    /// What happens when a person uses the control. Set before the control is shown; run on the main thread.
    void setAction(std::function<void()> action) { action_ = std::move(action); }
    /// What runs ahead of the action: a binding's save. Main thread.
    void setSaver(std::function<void()> saver) { saver_ = std::move(saver); }
    /// Whether something else keeps the control's value. Main thread.
    bool hasSaver() const { return bool(saver_); }
    /// Runs the saver and then the action, as far as they are there. Main thread.
    void performAction();

    /// The one observer, or none. Main thread; it must be taken away before the observer goes.
    void setObserver(ControlObserver* observer) { observer_ = observer; }

protected:
    Control() = default;

    template <class Value> Value read(const Value& field) const
    {
        const std::lock_guard guard(mutex_);
        return field;
    }
    template <class Value> void write(Value& field, Value value)
    {
        {
            const std::lock_guard guard(mutex_);
            std::swap(field, value);
        }
        changed();
    }
    void setFlag(std::atomic<bool>& flag, bool value);
    /// Tells the observer, on the main thread.
    void changed();

    mutable std::mutex mutex_;

private:
    void deliver();

    std::atomic<bool> hidden_ = false;
    std::atomic<bool> enabled_ = true;
    std::atomic<bool> hasSuperview_ = false;
    std::atomic<bool> changePosted_ = false;
    std::atomic<int> tag_ = 0;
    std::atomic<ControlObserver*> observer_ = nullptr;
    QString toolTip_;
    std::function<void()> action_;
    std::function<void()> saver_;
};

/// Who asked for an action: a control, or nobody.
using Sender = Control*;

} // namespace zolt
