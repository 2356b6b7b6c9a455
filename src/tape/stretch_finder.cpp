#include "tape/stretch_finder.h"

#include "timecode/frame_number.h"

#include <cmath>
#include <utility>

namespace vexa {

namespace {

/// After this time without a word, the next word starts another stretch.
constexpr double longestHole = 1; // seconds

/// The maximum deviation of a word from its time, in frames.
constexpr double mostDisplacement = 0.5;

/// A word is alone if no other is within this part of its length, before or after it.
constexpr double loneliness = 0.5;

double length(const TapeWord& word) { return word.end - word.begin; }

/// The forward distance between two numbers, possibly over midnight.
std::uint64_t distance(const Timecode& from, const Timecode& to, const FrameRate& rate) {
    const auto day = framesADay(rate);
    return (frameNumber(to, rate) + day - frameNumber(from, rate)) % day;
}

} // namespace

StretchFinder::Rates StretchFinder::ratesOf(const TapeWord& word) {
    Rates rates;
    for (const auto& rate : frameRates)
        rates[rate.code] = rate.dropFrame == word.dropFrame && isValid(word.time, rate);
    return rates;
}

StretchFinder::Step StretchFinder::step(const TapeWord& from, Rates rates,
                                        const TapeWord& to) const {
    Step step;
    if (to.begin - from.end > longestHole * m_sampleRate)
        return step;
    const double elapsed = (to.end - from.end) / length(from);
    rates &= ratesOf(to);
    for (const auto& rate : frameRates) {
        if (!rates[rate.code])
            continue;
        const auto frames = distance(from.time, to.time, rate);
        if (frames == 0 || std::abs(elapsed - static_cast<double>(frames)) >= mostDisplacement)
            continue;
        step.rates.set(rate.code);
        step.frames = frames; // frames that fit the time are equal at all rates
    }
    return step;
}

void StretchFinder::take(const TapeWord& word) {
    const bool isAlone = word.begin - m_end > loneliness * length(word);
    m_end = word.end;
    if (isAlone)
        beginSole();
    m_isSole = false;
    if (const auto next = m_isOpen ? step(m_last, m_rates, word) : Step{}; next.rates.any()) {
        append(word, next);
        m_doubt.reset();
        return;
    }
    const auto next = m_doubt ? step(*m_doubt, ratesOf(*m_doubt), word) : Step{};
    if (next.rates.any() && next.frames == 1) {
        close();
        begin(*m_doubt);
        append(word, next);
        m_doubt.reset();
        return;
    }
    m_doubt = word;
    m_isSole = isAlone && word.isClear;
}

void StretchFinder::reached(double sample) {
    if (sample - m_end > 2 * longestHole * m_sampleRate)
        finish();
}

void StretchFinder::finish() {
    beginSole();
    close();
    m_doubt.reset();
}

void StretchFinder::beginSole() {
    if (!std::exchange(m_isSole, false))
        return;
    close();
    begin(*m_doubt);
    m_doubt.reset();
}

void StretchFinder::begin(const TapeWord& first) {
    m_isOpen = true;
    m_stretch = {};
    m_stretch.first = first.time;
    m_stretch.frames = 1;
    m_stretch.userBits = first.userBits;
    m_rates = ratesOf(first);
    m_last = first;
    m_firstEnd = first.end;
    m_lastBegin = first.begin;
    m_peaks = first.peak;
}

void StretchFinder::append(const TapeWord& word, const Step& step) {
    if (step.frames > 1) {
        m_stretch.unread += step.frames - 1;
        if (m_stretch.holes.size() < Stretch::mostHoles)
            m_stretch.holes.push_back({m_last.end, m_stretch.frames, step.frames - 1});
    }
    m_lastBegin = word.begin;
    m_stretch.frames += step.frames;
    m_rates = step.rates;
    m_peaks += word.peak;
    m_last = word;
}

void StretchFinder::close() {
    if (!std::exchange(m_isOpen, false))
        return;
    auto stretch = std::move(m_stretch);
    const double frameLength =
        stretch.frames > 2 ? (m_lastBegin - m_firstEnd) / static_cast<double>(stretch.frames - 2)
                           : length(m_last);
    double nearest = 0;
    for (const auto& rate : frameRates) {
        const double speed = m_sampleRate / frameLength * static_cast<double>(rate.seconds) /
                             static_cast<double>(rate.frames);
        const double off = std::abs(std::log(speed));
        if (m_rates[rate.code] && (!stretch.rate || off < nearest)) {
            nearest = off;
            stretch.rate = &frameRates[rate.code];
            stretch.speed = speed - 1;
        }
    }
    stretch.last = m_last.time;
    stretch.begin = m_firstEnd - frameLength;
    stretch.end = m_lastBegin + frameLength;
    stretch.peak = m_peaks / static_cast<double>(stretch.frames - stretch.unread);
    m_onStretch(std::move(stretch));
}

} // namespace vexa
