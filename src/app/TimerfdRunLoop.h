#pragma once

#include "stripe/RunLoop.h"

namespace vexa {

/// Timers of nanosecond interval on the Qt event loop, by the kernel's monotonic clock: it never
/// steps, and stands still while the machine is suspended. QTimer counts whole milliseconds, which
/// at 30 frames a second gains some 40 seconds an hour.
class TimerfdRunLoop final : public RunLoop {
public:
    std::unique_ptr<RunLoopTimer> scheduleTimer(Seconds interval, bool repeats,
                                                std::function<void()> action) override;
};

} // namespace vexa
