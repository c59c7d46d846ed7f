#include "ui/bus/RunOnBus.h"

#include "ui/runs/RunTexts.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int milliseconds = 500;

QString titleOf(const Run& run)
{
    if (run.failedRows() > 0) return u"Some tasks failed"_s;
    return run.complete > 0 ? u"All tasks are complete"_s : u"All tasks were canceled"_s;
}

} // namespace

RunOnBus::RunOnBus(RunRecord& record, std::function<bool()> inFront, const QDBusConnection& session,
                   const QDBusConnection& system)
    : record_(record), inFront_(std::move(inFront)), session_(session), system_(system), notice_(session),
      progress_(session)
{
    tick_.setInterval(milliseconds);
    QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] { progress_.show(record_.progress()); });
    record_.addListener(this);
}

RunOnBus::~RunOnBus()
{
    record_.removeListener(this);
    if (awake_) progress_.hide();
}

void RunOnBus::runBegan(const Run&)
{
    awake_.emplace(u"Tasks are at work"_s, session_, system_);
    tick_.start();
}

void RunOnBus::runEnded(const Run& run)
{
    tick_.stop();
    progress_.hide();
    awake_.reset();
    if (!inFront_()) notice_.show(titleOf(run), shortWords(run));
}

} // namespace zolt
