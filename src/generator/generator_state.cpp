#include "generator/generator_state.h"

#include "timecode/sync_type.h"

namespace vexa {

namespace {
/// The setup whose bytes are those of the stop frame: a start at 00:00:00:00 after a stop may
/// well mean it.
constexpr SetupFrame setupInStop{{}, {sync::mtc, rate::fps24}};

std::string setupText(const SetupFrame& setup) {
    return timecodeText(setup.time) + " " + modeText(setup.mode);
}
} // namespace

std::string GeneratorState::take(const Frame& frame, Moment arrival) {
    return std::visit([&](const auto& kind) { return act(kind, arrival); }, frame);
}

std::string GeneratorState::act(const SetupFrame& setup, Moment) {
    auto text = "setup " + setupText(setup);
    if (m_phase == Phase::Running)
        return "unexpected: " + text + " while running";
    m_phase = Phase::SetUp;
    m_setup = setup;
    return text;
}

std::string GeneratorState::act(const StartFrame& start, Moment arrival) {
    const auto text = "start " + timecodeText(start.time);
    if (m_phase == Phase::Running)
        return "unexpected: " + text + " while running";
    const bool wasSetUp = m_phase == Phase::SetUp;
    if (!m_setup || (m_setup->time != start.time && !wasSetUp))
        return "unexpected: " + text + " without a setup";
    if (m_setup->time != start.time)
        return "unexpected: " + text + " after setup " + setupText(*m_setup);
    m_phase = Phase::Running;
    m_started = arrival;
    m_time = start.time;
    m_counted = 0;
    return wasSetUp ? text : text + ", set up as " + modeText(m_setup->mode) + " by the stop frame";
}

std::string GeneratorState::act(const StopFrame&, Moment arrival) {
    std::string text = "stop";
    if (m_phase == Phase::Running && m_setup->mode.rate) {
        // Anew: the time shown may be past the arrival of a stop that is read late.
        m_time = m_setup->time;
        m_counted = 0;
        countUntil(arrival);
        text += " at " + timecodeText(m_time);
    }
    m_phase = Phase::Stopped;
    m_setup = setupInStop;
    return text;
}

std::string GeneratorState::act(const MalformedFrame& malformed, Moment) {
    return "malformed: " + malformed.reason;
}

void GeneratorState::countUntil(Moment now) {
    // Drop-frame numbers are only left out by single steps.
    const auto& rate = frameRateForCode(*m_setup->mode.rate);
    const std::chrono::duration<double> elapsed = now - m_started;
    const double frames = elapsed.count() / rate.frameInterval;
    for (; static_cast<double>(m_counted + 1) <= frames; ++m_counted)
        m_time = advanced(m_time, 1, rate);
}

std::string GeneratorState::status(Moment now) {
    switch (m_phase) {
    case Phase::SetUp:
        return "set up " + setupText(*m_setup);
    case Phase::Running:
        if (!m_setup->mode.rate)
            return "running since " + setupText(*m_setup);
        countUntil(now);
        return "running " + timecodeText(m_time) + " " + modeText(m_setup->mode);
    case Phase::Stopped:
        break;
    }
    return "stopped";
}

} // namespace vexa
