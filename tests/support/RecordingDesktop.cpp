#include "support/RecordingDesktop.h"

namespace zolt::test {

RecordingDesktop::RecordingDesktop()
{
    installDesktop(this);
}

RecordingDesktop::~RecordingDesktop()
{
    installDesktop(nullptr);
}

std::vector<OptionalText> RecordingDesktop::badges() const
{
    const std::lock_guard guard(mutex_);
    return badges_;
}

OptionalText RecordingDesktop::badge() const
{
    const std::lock_guard guard(mutex_);
    return badges_.empty() ? OptionalText() : badges_.back();
}

std::vector<int> RecordingDesktop::attentions() const
{
    const std::lock_guard guard(mutex_);
    return attentions_;
}

int RecordingDesktop::terminations() const
{
    const std::lock_guard guard(mutex_);
    return terminations_;
}

void RecordingDesktop::setBadgeLabel(const OptionalText& label)
{
    const std::lock_guard guard(mutex_);
    badges_.push_back(label);
}

void RecordingDesktop::requestUserAttention(int level)
{
    const std::lock_guard guard(mutex_);
    attentions_.push_back(level);
}

void RecordingDesktop::terminate()
{
    const std::lock_guard guard(mutex_);
    ++terminations_;
}

} // namespace zolt::test
