#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "app/orderly_end.h"

namespace corvane {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler reaches nothing else.
std::array<int, 2> ends = {-1, -1};  // read from the first, written to the second
std::array<struct sigaction, kSignals.size()> before;

void noteSignal(int /*signal*/) {
    const int error = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(ends[1], &byte, 1);
    errno = error;
}

void catchSignals() {
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
    }
}

}  // namespace

// Reads what a signal's handler writes. The ends are open.
class EndSignals::Watch {
public:
    explicit Watch(std::function<void()> end) : notifier_(ends[0], QSocketNotifier::Read) {
        QObject::connect(
            &notifier_, &QSocketNotifier::activated, &notifier_, [call = std::move(end)] {
                char bytes[16];
                [[maybe_unused]] const ssize_t got = ::read(ends[0], bytes, sizeof bytes);
                call();
            });
    }

private:
    QSocketNotifier notifier_;
};

EndSignals::EndSignals(std::function<void()> end) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return;  // then they end the process as they always did
    }
    watch_ = std::make_unique<Watch>(std::move(end));
    catchSignals();
}

EndSignals::~EndSignals() {
    if (!watch_) return;
    for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &before[i], nullptr);
    watch_.reset();
    for (int& end : ends) ::close(std::exchange(end, -1));
}

}  // namespace corvane
