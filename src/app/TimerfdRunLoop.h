#pragma once

#include "stripe/RunLoop.h"

namespace vexa {

/// Timers with nanosecond intervals on the Qt event loop. They use the kernel's monotonic clock,
/// which never steps, and which stops while the machine is suspended. QTimer counts whole
/// milliseconds: at 30 frames a second, it gains some 40 seconds an hour.
class TimerfdRunLoop final : public RunLoop {
public:
    std::unique_ptr<RunLoopTimer> scheduleTimer(Seconds interval, bool repeats,
                                                std::function<void()> action) override;
};

} // namespace vexa
