#pragma once

#include "stripe/RunLoop.h"
#include "timecode/StripeSettings.h"
#include "timecode/frame_rate.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vexa {

/// The clock of a run. It counts one frame per tick, even if the tick is late, and follows neither
/// the time of day nor the generator.
class StripeClock {
public:
    /// Counts at the frame rate of the settings. These and the run loop must outlive this.
    StripeClock(RunLoop& runLoop, const StripeSettings& settings, std::function<void()> ticked)
        : m_runLoop(runLoop), m_settings(settings), m_ticked(std::move(ticked)) {}

    /// Packed timecode; as set until the first tick, truncated to 32 bits after it.
    std::uint64_t now() const { return m_now; }
    void set(std::uint64_t time) { m_now = time; }

    /// Starts ticking at the current rate's interval. A later change of rate affects how frames
    /// carry, not how often the clock ticks.
    void start();
    void stop() { m_timer.reset(); }
    /// Whether it has ticked since it was last started.
    bool hasTicked() const { return m_hasTicked; }

    /// The rate whose interval it ticks at, or would tick at after start().
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
    const FrameRate* m_tickingRate = nullptr; ///< only valid with a timer
    std::unique_ptr<RunLoopTimer> m_timer;
};

} // namespace vexa
