#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace vexa {

/// A timer on the main thread's event loop. Destroying it stops it, even from its own action.
class RunLoopTimer {
public:
    virtual ~RunLoopTimer() = default;

    /// False after invalidation, or after a single shot has fired.
    virtual bool isValid() const = 0;
    virtual void invalidate() = 0;
    /// The time until it next fires; 0 if it is due, or will not fire again.
    virtual std::chrono::duration<double> timeLeft() const = 0;
};

/// Creates timers: on the event loop in the program, fired by hand in tests.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    using Seconds = std::chrono::duration<double>;

    /// Starts a timer, which fires one interval from now and never within this call. An interval of
    /// 0 or less means the next pass of the loop. A repeating timer keeps to the grid of its
    /// interval and does not catch up on missed firings.
    virtual std::unique_ptr<RunLoopTimer> scheduleTimer(Seconds interval, bool repeats,
                                                        std::function<void()> action) = 0;
};

} // namespace vexa
