#include "app/batch/Interrupts.h"

#include "platform/errors/Exceptions.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace zolt::batch {

namespace {

constexpr int watched[] = {SIGINT, SIGTERM, SIGHUP};
int ends[2] = {-1, -1}; // a pipe: the handler writes, the event loop reads

extern "C" void noteSignal(int signal)
{
    const int before = errno;
    const auto number = static_cast<unsigned char>(signal);
    [[maybe_unused]] const auto written = ::write(ends[1], &number, 1);
    errno = before;
}

void handleWith(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : watched)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

Interrupts::Interrupts(std::function<void(int)> handler) : handler_(std::move(handler))
{
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw PlatformException(QStringLiteral("SystemException"), QStringLiteral("no pipe for signals"));
    }
    notifier_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { takeUp(); });
    ::signal(SIGPIPE, SIG_IGN);
    handleWith(noteSignal);
}

Interrupts::~Interrupts()
{
    letGo();
    notifier_.reset();
    for (int& end : ends)
        ::close(std::exchange(end, -1));
}

int Interrupts::descriptor() const
{
    return ends[0];
}

void Interrupts::letGo()
{
    handleWith(SIG_DFL);
}

void Interrupts::takeUp()
{
    unsigned char signal = 0;
    if (::read(ends[0], &signal, 1) == 1) guarded("signal", [&] { handler_(signal); });
}

} // namespace zolt::batch
