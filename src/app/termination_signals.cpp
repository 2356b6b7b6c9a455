#include "app/termination_signals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>

namespace vexa {

namespace {

int wakeUp = -1;

void onSignalReceived(int) {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wakeUp, &one, sizeof one);
}

void handleBy(void (*handler)(int)) {
    struct sigaction action{};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onSignal) {
    wakeUp = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    m_notifier = std::make_unique<QSocketNotifier>(wakeUp, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [onSignal = std::move(onSignal)] {
                         std::uint64_t count = 0;
                         if (read(wakeUp, &count, sizeof count) == sizeof count)
                             onSignal();
                     });
    handleBy(onSignalReceived);
}

TerminationSignals::~TerminationSignals() {
    handleBy(SIG_DFL);
    m_notifier.reset();
    close(wakeUp);
}

} // namespace vexa
