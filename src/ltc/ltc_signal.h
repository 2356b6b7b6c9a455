#pragma once

#include "ltc/ltc_edge.h"
#include "ltc/ltc_word.h"
#include "timecode/frame_steps.h"

#include <cstdint>
#include <span>

namespace vexa {

/// What a run of linear timecode says.
struct LtcRun {
    Timecode first; ///< valid at the rate
    FrameRate rate;
    std::uint64_t words = UINT64_MAX; ///< how many, where it is not finished before
    LtcUserBits userBits = 0;
};

/// Linear timecode as sound: biphase mark, a transition at the start of each bit and another in the
/// middle of a 1. Made in blocks of any size, which has no influence on the samples. Only the
/// constructor allocates.
class LtcSignal {
public:
    /// Samples a second, 8000 to 192000. The level is that of the peaks, in dB below full scale.
    LtcSignal(std::uint32_t sampleRate, double levelDbfs);

    /// A run whose lead-in begins with the next sample: the signal rises, and the first word begins
    /// leadIn() samples later. Breaks off what was still under way.
    void start(const LtcRun& run);

    /// Half a millisecond, about a bit. A decoder that has heard nothing or something else before
    /// knows from it which transition is the first of the word.
    std::uint64_t leadIn() const { return m_sampleRate / 2000; }

    /// The word under way becomes the last one. After it comes one more transition, by which
    /// decoders see its end; a bit later the signal returns to zero.
    void finish();

    /// Whether all that is still to come is zeros.
    bool isSilent() const { return m_end == UINT64_MAX && m_position - m_begin >= m_edge.size(); }

    /// The number of the word under way, or of the last one.
    const Timecode& time() const { return m_time; }

    /// The next samples.
    void render(std::span<float> samples);

private:
    enum class Part { leadIn, words, rest };

    void beginStretch();
    bool beginWord();
    void beginEdge(float to);
    void advance(std::size_t halfBits);
    void renderStretch(std::span<float> samples) const;

    LtcEdge m_edge;
    std::uint32_t m_sampleRate;
    float m_amplitude;

    Part m_part = Part::rest;
    LtcRun m_run;
    std::uint64_t m_wordsToCome = 0;
    Timecode m_time;
    LtcWord m_word;
    std::size_t m_halfBit = 0; ///< of the word, the next to begin
    FrameSteps m_steps;        ///< half-bits of the run; the next edge begins at this one

    /// What is being rendered: an edge and the level it leads to, up to the next edge. Positions
    /// are samples since the start.
    std::uint64_t m_begin = 0;
    std::uint64_t m_end = UINT64_MAX;
    std::uint64_t m_position = 0;
    const float* m_edgeSamples;
    float m_from = 0;
    float m_to = 0;
    float m_last = 0; ///< the sample before m_position
};

} // namespace vexa
