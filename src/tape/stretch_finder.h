#pragma once

#include "tape/stretch.h"
#include "tape/tape_word.h"
#include "timecode/frame_rate.h"

#include <bitset>
#include <functional>
#include <limits>
#include <optional>

namespace vexa {

/// Joins words to stretches. Two consecutive words make a stretch, and so does a clear word with
/// nothing close to it. Any other word counts as noise.
class StretchFinder {
public:
    using OnStretch = std::function<void(Stretch)>;

    StretchFinder(std::uint32_t sampleRate, OnStretch onStretch)
        : m_sampleRate(sampleRate), m_onStretch(std::move(onStretch)) {}

    void take(const TapeWord& word);

    /// All words before this sample have been taken, so a stretch that ended long before it is
    /// over.
    void reached(double sample);

    /// No more words follow.
    void finish();

private:
    /// The rates that the numbers allow, one bit per rate code.
    using Rates = std::bitset<rate::count>;

    /// The transition from one word to the next.
    struct Step {
        Rates rates; ///< rates at which it is `frames` later in number and time; none if it is not
        std::uint64_t frames = 0;
    };

    static Rates ratesOf(const TapeWord& word);
    Step step(const TapeWord& from, Rates rates, const TapeWord& to) const;
    /// Begins a stretch with m_doubt if that can be a stretch by itself.
    void beginSole();
    void begin(const TapeWord& first);
    void append(const TapeWord& word, const Step& step);
    void close();

    double m_sampleRate;
    OnStretch m_onStretch;

    bool m_isOpen = false;
    Stretch m_stretch;
    Rates m_rates;
    TapeWord m_last;
    /// The end of the first word and the beginning of the last. Between them, all words have all
    /// their edges, so the places are as exact as possible.
    double m_firstEnd = 0;
    double m_lastBegin = 0;
    double m_peaks = 0; ///< sum over the words

    std::optional<TapeWord> m_doubt; ///< noise, or the first word of another stretch
    /// Whether m_doubt is a stretch unless a word follows it closely.
    bool m_isSole = false;
    double m_end = -std::numeric_limits<double>::infinity(); ///< of the latest word
};

} // namespace vexa
