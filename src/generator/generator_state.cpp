#include "generator/generator_state.h"

#include "timecode/sync_type.h"

namespace vexa {

namespace {
/// The setup with the same bytes as the stop frame. A start at 00:00:00:00 after a stop may mean
/// it.
constexpr SetupFrame setupInStop{{}, {sync::mtc, rate::fps24}};
} // namespace

Reply GeneratorState::take(const Frame& frame) {
    return std::visit([this](const auto& kind) { return act(kind); }, frame);
}

Reply GeneratorState::act(const SetupFrame& setup) {
    if (m_phase == Phase::running)
        return Reply::whileRunning;
    m_phase = Phase::setUp;
    m_setup = setup;
    return Reply::done;
}

Reply GeneratorState::act(const StartFrame& start) {
    if (m_phase == Phase::running)
        return Reply::whileRunning;
    const bool wasSetUp = m_phase == Phase::setUp;
    if (!m_setup || (m_setup->time != start.time && !wasSetUp))
        return Reply::withoutSetup;
    if (m_setup->time != start.time)
        return Reply::afterOtherSetup;
    m_phase = Phase::running;
    return wasSetUp ? Reply::done : Reply::doneBySetupInStop;
}

Reply GeneratorState::act(const StopFrame&) {
    m_phase = Phase::stopped;
    m_setup = setupInStop;
    return Reply::done;
}

Reply GeneratorState::act(const MalformedFrame&) { return Reply::malformed; }

} // namespace vexa
