#include "generator/generator.h"

#include "timecode/sync_type.h"

namespace vexa {

namespace {
/// Sends the start time of an MTC run, so that receivers locate to it.
void announce(const SetupFrame& setup, MidiWriter& midi) {
    if (setup.mode.sync == sync::mtc)
        midi.write(0, mtcFullFrame(setup.time, frameRateForCode(*setup.mode.rate)));
}
} // namespace

Generator::Generator(std::uint32_t sampleRate, double level)
    : m_sampleRate(sampleRate), m_ltc(sampleRate, level) {}

Report Generator::take(const SysEx& message, MidiWriter& midi) {
    Report report;
    report.message = message;
    const bool wasRunning = m_state.phase() == GeneratorState::Phase::running;
    const bool hadRate = m_state.setup() && m_state.setup()->mode.rate;
    const auto frame = decodedFrame(message);
    report.reply = m_state.take(frame);
    if (report.reply == Reply::doneBySetupInStop)
        announce(*m_state.setup(), midi);
    if (report.reply == Reply::done || report.reply == Reply::doneBySetupInStop)
        std::visit([&](const auto& kind) { act(kind, midi); }, frame);
    report.state = m_state;
    if (wasRunning && hadRate && m_state.phase() == GeneratorState::Phase::stopped)
        report.stoppedAt = time();
    return report;
}

void Generator::act(const SetupFrame& setup, MidiWriter& midi) { announce(setup, midi); }

void Generator::act(const StartFrame&, MidiWriter&) {
    const auto& [time, mode] = *m_state.setup();
    if (!mode.rate)
        return;
    const auto& rate = frameRateForCode(*mode.rate);
    m_ltc.start({time, rate});
    if (mode.sync == sync::mtc)
        m_mtc.emplace(time, rate, m_sampleRate);
    m_position = 0;
}

void Generator::act(const StopFrame&, MidiWriter&) {
    m_ltc.finish();
    m_mtc.reset();
}

void Generator::act(const MalformedFrame&, MidiWriter&) {}

void Generator::render(std::span<float> ltc, MidiWriter& midi) {
    m_ltc.render(ltc);
    const auto due = [this] { return m_ltc.leadIn() + m_mtc->sample() - m_position; };
    for (; m_mtc && due() < ltc.size(); m_mtc->advance())
        midi.write(due(), m_mtc->message());
    m_position += ltc.size();
}

} // namespace vexa
