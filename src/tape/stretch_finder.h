#pragma once

#include "tape/stretch.h"
#include "tape/tape_word.h"
#include "timecode/frame_rate.h"

#include <bitset>
#include <functional>
#include <optional>

namespace vexa {

/// Puts words together to stretches. Two words that follow each other make one; a word that follows
/// none, and that none follows, is taken for noise.
class StretchFinder {
public:
    using OnStretch = std::function<void(Stretch)>;

    StretchFinder(std::uint32_t sampleRate, OnStretch onStretch)
        : m_sampleRate(sampleRate), m_onStretch(std::move(onStretch)) {}

    void take(const TapeWord& word);

    /// All words before this sample have been taken: a stretch that ended long before it is over.
    void reached(double sample);

    /// There are no more words.
    void finish();

private:
    /// The rates that the numbers allow, each a bit of its code.
    using Rates = std::bitset<rate::count>;

    /// How one word leads to another.
    struct Step {
        Rates rates; ///< at which it is `frames` later, in number and in time; none where it is not
        std::uint64_t frames = 0;
    };

    static Rates ratesOf(const TapeWord& word);
    Step step(const TapeWord& from, Rates rates, const TapeWord& to) const;
    void begin(const TapeWord& first);
    void append(const TapeWord& word, const Step& step);
    void close();

    double m_sampleRate;
    OnStretch m_onStretch;

    bool m_isOpen = false;
    Stretch m_stretch;
    Rates m_rates;
    TapeWord m_last;
    /// Where the first word ends and where the last one begins: between them stand words whose
    /// edges are all there, so that nothing is known better.
    double m_firstEnd = 0;
    double m_lastBegin = 0;
    double m_peaks = 0; ///< sum over the words read

    std::optional<TapeWord> m_doubt; ///< noise, or the first word of another stretch
};

} // namespace vexa
