#pragma once

#include "generator/generator_state.h"
#include "generator/midi_writer.h"
#include "generator/report.h"
#include "ltc/ltc_signal.h"
#include "mtc/quarter_frames.h"

#include <optional>
#include <span>

namespace vexa {

/// The generator between the messages it is sent and the signals it puts out, all counted by the
/// samples of one clock. Now is always before the next sample to be rendered. A run's first word
/// begins with LTC's lead-in after its start, and so does its first quarter frame where the first
/// number is even. MTC runs give LTC and MTC, DTL runs LTC, FSK runs nothing. Real-time safe, but
/// for the constructor.
class Generator {
public:
    /// Samples a second, and the level of LTC in dBFS.
    Generator(std::uint32_t sampleRate, double level);

    /// Acts on a message now. The report has no arrival yet.
    Report take(const SysEx& message, MidiWriter& midi);

    /// The next samples of LTC, and the quarter frames that fall on them.
    void render(std::span<float> ltc, MidiWriter& midi);

    const GeneratorState& state() const { return m_state; }

    /// The number under way in a run, or the last one.
    const Timecode& time() const { return m_ltc.time(); }

private:
    void act(const SetupFrame& setup, MidiWriter& midi);
    void act(const StartFrame& start, MidiWriter& midi);
    void act(const StopFrame& stop, MidiWriter& midi);
    void act(const MalformedFrame& malformed, MidiWriter& midi);

    std::uint32_t m_sampleRate;
    GeneratorState m_state;
    LtcSignal m_ltc;
    std::optional<QuarterFrames> m_mtc; ///< while they run
    std::uint64_t m_position = 0;       ///< samples rendered since the start
};

} // namespace vexa
