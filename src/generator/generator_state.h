#pragma once

#include "generator/frame.h"
#include "generator/moment.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vexa {

/// What the generator does with the frames it is sent: stopped, set up or running, and the time
/// it has counted to. A frame with anything wrong changes nothing. Starts out stopped.
class GeneratorState {
public:
    enum class Phase { Stopped, SetUp, Running };

    /// Acts on a frame that arrived then. Returns what the frame meant here, for the log.
    std::string take(const Frame& frame, Moment arrival);

    Phase phase() const { return m_phase; }

    /// What the generator is doing now, with the running time, in one line. Time does not go back:
    /// a moment before an earlier one shows as that one.
    std::string status(Moment now);

private:
    std::string act(const SetupFrame& setup, Moment arrival);
    std::string act(const StartFrame& start, Moment arrival);
    std::string act(const StopFrame& stop, Moment arrival);
    std::string act(const MalformedFrame& malformed, Moment arrival);
    void countUntil(Moment now);

    Phase m_phase = Phase::Stopped;
    std::optional<SetupFrame> m_setup; ///< what a start would run, or runs
    Moment m_started;
    Timecode m_time;             ///< while running: what has been counted to,
    std::uint64_t m_counted = 0; ///< and in how many frames since the start
};

} // namespace vexa
