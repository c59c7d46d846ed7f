#include "platform/desktop/Desktop.h"

#include <atomic>

namespace zolt {

namespace {

class NoDesktop : public Desktop
{
public:
    void setBadgeLabel(const OptionalText&) override {}
    void requestUserAttention(int) override {}
    void terminate() override {}
};

std::atomic<Desktop*> installed = nullptr;

} // namespace

Desktop& desktop()
{
    static NoDesktop none;
    if (Desktop* const current = installed) return *current;
    return none;
}

void installDesktop(Desktop* desktop)
{
    installed = desktop;
}

} // namespace zolt
