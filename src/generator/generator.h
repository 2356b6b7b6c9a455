#pragma once

#include "generator/generator_state.h"
#include "generator/midi_writer.h"
#include "generator/report.h"
#include "ltc/ltc_signal.h"
#include "mtc/quarter_frames.h"

#include <optional>
#include <span>

namespace vexa {

/// Turns messages into signals, both timed by the samples of one clock. "Now" is just before the
/// next sample to render. A run's first word begins one LTC lead-in after its start. So does its
/// first quarter frame, if the first number is even. MTC runs produce LTC and MTC, DTL runs LTC,
/// FSK runs nothing. Real-time safe, except the constructor.
class Generator {
public:
    /// Sample rate in samples per second; LTC level in dBFS.
    Generator(std::uint32_t sampleRate, double level);

    /// Acts on a message now. The report has no arrival time yet.
    Report take(const SysEx& message, MidiWriter& midi);

    /// Renders the next LTC samples and sends the quarter frames that fall on them.
    void render(std::span<float> ltc, MidiWriter& midi);

    const GeneratorState& state() const { return m_state; }

    /// The current timecode of a run, or the last one.
    const Timecode& time() const { return m_ltc.time(); }

private:
    void act(const SetupFrame& setup, MidiWriter& midi);
    void act(const StartFrame& start, MidiWriter& midi);
    void act(const StopFrame& stop, MidiWriter& midi);
    void act(const MalformedFrame& malformed, MidiWriter& midi);

    std::uint32_t m_sampleRate;
    GeneratorState m_state;
    LtcSignal m_ltc;
    std::optional<QuarterFrames> m_mtc; ///< set while they run
    std::uint64_t m_position = 0;       ///< samples rendered since the start
};

} // namespace vexa
