#pragma once

#include "ltc/ltc_edge.h"
#include "ltc/ltc_word.h"
#include "timecode/frame_steps.h"

#include <cstdint>
#include <span>

namespace vexa {

/// A run of linear timecode.
struct LtcRun {
    Timecode first; ///< valid at the rate
    FrameRate rate;
    std::uint64_t words = UINT64_MAX; ///< number of words, unless finished earlier
    LtcUserBits userBits = 0;
};

/// Linear timecode as audio in biphase mark code: each bit starts with a transition, and a 1 has
/// another in its middle. Block sizes do not affect the samples. Only the constructor allocates.
class LtcSignal {
public:
    /// Sample rate in samples per second, 8000 to 192000; peak level in dB below full scale.
    LtcSignal(std::uint32_t sampleRate, double levelDbfs);

    /// Starts a run and interrupts any other. The lead-in starts with the next sample: the signal
    /// rises, and the first word starts leadIn() samples later.
    void start(const LtcRun& run);

    /// Half a millisecond, about one bit. The lead-in lets a decoder recognize the first transition
    /// of the word, whatever it received before.
    std::uint64_t leadIn() const { return m_sampleRate / 2000; }

    /// Makes the current word the last. One more transition marks its end for decoders; one bit
    /// later the signal returns to zero.
    void finish();

    /// Whether only zeros remain.
    bool isSilent() const { return m_end == UINT64_MAX && m_position - m_begin >= m_edge.size(); }

    /// The time of the current or the last word.
    const Timecode& time() const { return m_time; }

    /// Writes the next samples.
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
    std::size_t m_halfBit = 0; ///< the next half-bit of the word
    FrameSteps m_steps;        ///< counts half-bits; the next edge starts at the current one

    /// The current stretch: an edge and its final level, up to the next edge. Positions are samples
    /// since the start.
    std::uint64_t m_begin = 0;
    std::uint64_t m_end = UINT64_MAX;
    std::uint64_t m_position = 0;
    const float* m_edgeSamples;
    float m_from = 0;
    float m_to = 0;
    float m_last = 0; ///< the sample before m_position
};

} // namespace vexa
