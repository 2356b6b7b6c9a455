#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace vexa {

/// While it exists, SIGINT, SIGTERM and SIGHUP call back on the event loop instead of ending the
/// process. Only one may exist at a time.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> onSignal);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vexa
