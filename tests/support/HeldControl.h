// Stops a task's thread where it next shows something, so that a test can act in between.
#pragma once

#include <memory>
#include <utility>

namespace zolt::test {

/// Stands in for a control of a row, which a task is given before it starts. While it is held, whoever writes to it or
/// reads it waits: nothing on the main thread may ask for it then.
/// @tparam Model  TextField or ProgressIndicator; a stage of the work begins with a write to the latter
template <class Model> class HeldControl
{
public:
    HeldControl() = default;
    ~HeldControl() { letGo(); }
    HeldControl(const HeldControl&) = delete;
    HeldControl& operator=(const HeldControl&) = delete;

    std::shared_ptr<Model> model() const { return model_; }
    void hold()
    {
        model_->lock();
        held_ = true;
    }
    void letGo()
    {
        if (std::exchange(held_, false)) model_->unlock();
    }

private:
    struct Lockable : Model
    {
        void lock() { this->mutex_.lock(); }
        void unlock() { this->mutex_.unlock(); }
    };

    std::shared_ptr<Lockable> model_ = std::make_shared<Lockable>();
    bool held_ = false;
};

} // namespace zolt::test
