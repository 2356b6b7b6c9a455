#include "app/TimerfdRunLoop.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vexa {

namespace {

itimerspec timerSetting(RunLoop::Seconds interval, bool repeats) {
    constexpr double nanosecondsPerSecond = 1e9;
    // Zero would disarm the timer; a pause of centuries would overflow it.
    const double bounded = std::clamp(interval.count() * nanosecondsPerSecond, 1.0, 1e18);
    const auto nanoseconds = static_cast<std::int64_t>(std::llround(bounded));
    const timespec time{nanoseconds / 1'000'000'000, nanoseconds % 1'000'000'000};
    return {repeats ? time : timespec{}, time};
}

class TimerfdTimer final : public RunLoopTimer {
public:
    TimerfdTimer(RunLoop::Seconds interval, bool repeats, std::function<void()> action)
        : m_repeats(repeats),
          m_action(std::make_shared<std::function<void()>>(std::move(action))),
          m_descriptor(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)),
          m_notifier(new QSocketNotifier(m_descriptor, QSocketNotifier::Read)) {
        const auto setting = timerSetting(interval, repeats);
        timerfd_settime(m_descriptor, 0, &setting, nullptr);
        QObject::connect(m_notifier, &QSocketNotifier::activated, m_notifier, [this] { fire(); });
    }

    ~TimerfdTimer() override { invalidate(); }

    bool isValid() const override { return m_notifier != nullptr; }

    void invalidate() override {
        if (!m_notifier)
            return;
        m_notifier->setEnabled(false);
        m_notifier->disconnect();
        m_notifier->deleteLater(); // this may be its callback
        m_notifier = nullptr;
        close(m_descriptor);
    }

    RunLoop::Seconds timeLeft() const override {
        itimerspec setting{};
        if (m_notifier)
            timerfd_gettime(m_descriptor, &setting);
        const auto& [seconds, nanoseconds] = setting.it_value;
        return std::chrono::seconds(seconds) + std::chrono::nanoseconds(nanoseconds);
    }

private:
    void fire() {
        std::uint64_t expirations = 0;
        if (read(m_descriptor, &expirations, sizeof expirations) != sizeof expirations)
            return;
        const auto action = m_action; // the action may destroy this timer
        if (!m_repeats)
            invalidate();
        (*action)();
    }

    const bool m_repeats;
    const std::shared_ptr<std::function<void()>> m_action;
    const int m_descriptor;
    QSocketNotifier* m_notifier;
};

} // namespace

std::unique_ptr<RunLoopTimer> TimerfdRunLoop::scheduleTimer(Seconds interval, bool repeats,
                                                            std::function<void()> action) {
    return std::make_unique<TimerfdTimer>(interval, repeats, std::move(action));
}

} // namespace vexa
