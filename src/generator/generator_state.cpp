#include "generator/generator_state.h"

#include "timecode/sync_type.h"

namespace vexa {

namespace {
/// The setup whose bytes are those of the stop frame: a start at 00:00:00:00 after a stop may
/// well mean it.
constexpr SetupFrame setupInStop{{}, {sync::mtc, rate::fps24}};
} // namespace

Reply GeneratorState::take(const Frame& frame) {
    return std::visit([this](const auto& kind) { return act(kind); }, frame);
}

Reply GeneratorState::act(const SetupFrame& setup) {
    if (m_phase == Phase::Running)
        return Reply::WhileRunning;
    m_phase = Phase::SetUp;
    m_setup = setup;
    return Reply::Done;
}

Reply GeneratorState::act(const StartFrame& start) {
    if (m_phase == Phase::Running)
        return Reply::WhileRunning;
    const bool wasSetUp = m_phase == Phase::SetUp;
    if (!m_setup || (m_setup->time != start.time && !wasSetUp))
        return Reply::WithoutSetup;
    if (m_setup->time != start.time)
        return Reply::AfterOtherSetup;
    m_phase = Phase::Running;
    return wasSetUp ? Reply::Done : Reply::DoneBySetupInStop;
}

Reply GeneratorState::act(const StopFrame&) {
    m_phase = Phase::Stopped;
    m_setup = setupInStop;
    return Reply::Done;
}

Reply GeneratorState::act(const MalformedFrame&) { return Reply::Malformed; }

} // namespace vexa
