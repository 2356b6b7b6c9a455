#pragma once

#include "generator/frame.h"

#include <optional>

namespace vexa {

/// The outcome of a frame.
enum class Reply {
    done,
    doneBySetupInStop, ///< a start set up by the stop frame, which has the bytes of a setup
    malformed,
    whileRunning,    ///< a setup or start during a run
    withoutSetup,    ///< a start with nothing to run
    afterOtherSetup, ///< a start with another time than its setup
};

/// The rules of the generator, which is stopped, set up or running; initially stopped. A faulty
/// frame changes nothing. Real-time safe.
class GeneratorState {
public:
    enum class Phase { stopped, setUp, running };

    Reply take(const Frame& frame);

    Phase phase() const { return m_phase; }

    /// The current run, or the one that a start would begin; none before the first setup.
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
