#include "ltc/ltc_signal.h"

#include <algorithm>
#include <cmath>

namespace vexa {

namespace {
constexpr std::uint32_t wordHalfBits = 160;

FrameSteps steps(const FrameRate& rate, std::uint32_t sampleRate) {
    return {rate, sampleRate, wordHalfBits};
}
} // namespace

LtcSignal::LtcSignal(std::uint32_t sampleRate, double levelDbfs)
    : m_edge(sampleRate),
      m_sampleRate(sampleRate),
      m_amplitude(static_cast<float>(std::pow(10, levelDbfs / 20))),
      m_run{{}, frameRateForCode(rate::fps30)},
      m_steps(steps(m_run.rate, sampleRate)),
      m_position(m_edge.size()),
      m_edgeSamples(m_edge.samples(0)) {}

void LtcSignal::start(const LtcRun& run) {
    m_part = Part::leadIn;
    m_run = run;
    m_wordsToCome = run.words;
    m_time = run.first;
    m_halfBit = wordHalfBits;
    m_steps = steps(run.rate, m_sampleRate);
    m_end = m_position = 0;
    m_to = m_last; // interrupting a run can leave the level in the middle of an edge
}

void LtcSignal::finish() { m_wordsToCome = 0; }

void LtcSignal::render(std::span<float> samples) {
    while (!samples.empty()) {
        if (m_position == m_end)
            beginStretch();
        const auto count = std::min<std::uint64_t>(samples.size(), m_end - m_position);
        renderStretch(samples.first(count));
        m_last = samples[count - 1];
        m_position += count;
        samples = samples.subspan(count);
    }
}

void LtcSignal::beginStretch() {
    if (m_part == Part::leadIn && m_wordsToCome > 0) {
        beginEdge(m_amplitude);
        m_end = leadIn();
        m_part = Part::words;
    } else if (m_part == Part::words) {
        if (m_halfBit == wordHalfBits && !beginWord())
            m_part = Part::rest;
        const bool isOne = m_part == Part::words && m_word[m_halfBit / 2];
        beginEdge(-m_to);
        advance(isOne ? 1 : 2);
    } else {
        beginEdge(0);
        m_end = UINT64_MAX;
    }
}

bool LtcSignal::beginWord() {
    if (m_wordsToCome == 0)
        return false;
    if (m_wordsToCome < m_run.words)
        m_time = advanced(m_time, 1, m_run.rate);
    --m_wordsToCome;
    m_word = ltcWord(m_time, m_run.rate, m_run.userBits);
    m_halfBit = 0;
    return true;
}

void LtcSignal::beginEdge(float to) {
    m_begin = m_position;
    m_edgeSamples = m_edge.samples(m_steps.lag());
    m_from = m_to;
    m_to = to;
}

void LtcSignal::advance(std::size_t halfBits) {
    m_halfBit += halfBits;
    for (; halfBits > 0; --halfBits)
        m_steps.advance();
    m_end = leadIn() + m_steps.sample();
}

void LtcSignal::renderStretch(std::span<float> samples) const {
    const auto offset = m_position - m_begin;
    const auto onEdge =
        std::min<std::uint64_t>(m_edge.size() - std::min(offset, m_edge.size()), samples.size());
    const float middle = (m_from + m_to) / 2;
    const float swing = (m_to - m_from) / 2;
    for (std::size_t i = 0; i < onEdge; ++i)
        samples[i] = middle + swing * m_edgeSamples[offset + i];
    std::fill(samples.begin() + static_cast<std::ptrdiff_t>(onEdge), samples.end(), m_to);
}

} // namespace vexa
