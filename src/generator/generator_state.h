#pragma once

#include "generator/frame.h"

#include <optional>

namespace vexa {

/// What becomes of a frame.
enum class Reply {
    done,
    doneBySetupInStop, ///< a start whose setup is the stop frame with the same bytes
    malformed,
    whileRunning,    ///< a setup or start that comes in mid-run
    withoutSetup,    ///< a start with nothing to run
    afterOtherSetup, ///< a start with another time than its setup
};

/// The rules of the generator: stopped, set up or running. A frame with anything wrong changes
/// nothing. Starts out stopped. Real-time safe.
class GeneratorState {
public:
    enum class Phase { stopped, setUp, running };

    Reply take(const Frame& frame);

    Phase phase() const { return m_phase; }

    /// What a start would run, or what runs; none before the first setup.
    const std::optional<SetupFrame>& setup() const { return m_setup; }

private:
    Reply act(const SetupFrame& setup);
    Reply act(const StartFrame& start);
    Reply act(const StopFrame& stop);
    Reply act(const MalformedFrame& malformed);

    Phase m_phase = Phase::stopped;
    std::optional<SetupFrame> m_setup;
};

} // namespace vexa
