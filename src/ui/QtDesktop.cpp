#include "ui/QtDesktop.h"

#include "platform/threads/MainQueue.h"

#include <QApplication>

namespace zolt {

namespace {

constexpr int untilTheWindowIsUsed = 0;
constexpr int informational = 10;
constexpr int calmlyFor = 3000; // milliseconds

} // namespace

QtDesktop::QtDesktop() = default;

QtDesktop::~QtDesktop()
{
    *alive_ = false;
}

void QtDesktop::onMain(std::function<void()> work)
{
    postToMain([alive = alive_, work = std::move(work)] {
        if (*alive) work();
    });
}

void QtDesktop::setBadgeLabel(const OptionalText& label)
{
    const std::lock_guard guard(mutex_);
    label_ = label;
    if (!std::exchange(badgePosted_, true)) onMain([this] { showBadge(); });
}

void QtDesktop::showBadge()
{
    OptionalText label;
    {
        const std::lock_guard guard(mutex_);
        label = label_;
        badgePosted_ = false;
    }
    badge_.show(label ? label->toLongLong() : 0);
}

void QtDesktop::requestUserAttention(int level)
{
    onMain([this, level] {
        if (mainWindow_) QApplication::alert(mainWindow_, level == informational ? calmlyFor : untilTheWindowIsUsed);
    });
}

void QtDesktop::terminate()
{
    onMain([this] {
        if (terminate_) terminate_();
    });
}

} // namespace zolt
