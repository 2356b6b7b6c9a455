#pragma once

#include "stripe/RunLoop.h"
#include "timecode/StripeSettings.h"
#include "timecode/frame_rate.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vexa {

/// The clock of a run: it counts one frame a tick and follows nothing else, neither the time of
/// day nor the generator. A tick that comes late is one frame all the same.
class StripeClock {
public:
    /// Counts at the frame rate of the settings, which, like the run loop, must outlive this.
    StripeClock(RunLoop& runLoop, const StripeSettings& settings, std::function<void()> ticked)
        : m_runLoop(runLoop), m_settings(settings), m_ticked(std::move(ticked)) {}

    /// Packed timecode; as it was set until the first tick, cut to 32 bits from then on.
    std::uint64_t now() const { return m_now; }
    void set(std::uint64_t time) { m_now = time; }

    /// Ticks from now on, at the rate's interval. A rate that is chosen later changes how frames
    /// are carried, not how often the clock ticks.
    void start();
    void stop() { m_timer.reset(); }
    /// Since it was started last.
    bool hasTicked() const { return m_hasTicked; }

    /// Of the interval that it ticks at, or would from start() on.
    const FrameRate& tickingRate() const {
        return m_timer ? *m_tickingRate : frameRateForCode(m_settings.frameRate);
    }

private:
    void tick();

    RunLoop& m_runLoop;
    const StripeSettings& m_settings;
    const std::function<void()> m_ticked;
    std::uint64_t m_now = 0;
    bool m_hasTicked = false;
    const FrameRate* m_tickingRate = nullptr; ///< while there is a timer
    std::unique_ptr<RunLoopTimer> m_timer;
};

} // namespace vexa
