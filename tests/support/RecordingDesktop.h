// A desktop that writes down what it is asked for.
#pragma once

#include "platform/desktop/Desktop.h"

#include <mutex>
#include <vector>

namespace zolt::test {

/// Installed while it lives. Any thread.
class RecordingDesktop : public Desktop
{
public:
    RecordingDesktop();
    ~RecordingDesktop() override;

    /// Every label that was set, in order; absent ones took the badge away.
    std::vector<OptionalText> badges() const;
    /// The label that stands; absent if there is none.
    OptionalText badge() const;
    /// The level of every call for attention, in order.
    std::vector<int> attentions() const;
    int terminations() const;

    void setBadgeLabel(const OptionalText& label) override;
    void requestUserAttention(int level) override;
    void terminate() override;

private:
    mutable std::mutex mutex_;
    std::vector<OptionalText> badges_;
    std::vector<int> attentions_;
    int terminations_ = 0;
};

} // namespace zolt::test
