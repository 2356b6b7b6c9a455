#pragma once

#include "tape/recording.h"
#include "tape/stretch_finder.h"
#include "tape/tape_contents.h"
#include "tape/word_reader.h"

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace vexa {

/// Finds the stretches in one channel's samples, for any number of samples.
class ChannelReader {
public:
    /// A tape of pure noise could have any number of stretches. Those beyond the limit are only
    /// counted.
    static constexpr std::size_t mostStretches = 2000;

    explicit ChannelReader(std::uint32_t sampleRate);
    ChannelReader(const ChannelReader&) = delete;
    ChannelReader& operator=(const ChannelReader&) = delete;

    /// Takes the next samples; the first and every `stride`th after it belong to the channel.
    void read(std::span<const float> samples, std::size_t stride);
    void finish();

    const std::vector<Stretch>& stretches() const { return m_stretches; }
    std::uint64_t stretchesBeyond() const { return m_beyond; }
    std::uint64_t framesRead() const { return m_framesRead; }
    /// The time of the last word; none before the first.
    const std::optional<Timecode>& lastTime() const { return m_lastTime; }

private:
    void take(const TapeWord& word);
    void add(Stretch stretch);

    WordReader m_words;
    StretchFinder m_finder;
    std::vector<Stretch> m_stretches;
    std::uint64_t m_beyond = 0;
    std::uint64_t m_framesRead = 0;
    std::uint64_t m_position = 0;
    std::optional<Timecode> m_lastTime;
};

/// Called now and then with the fraction of a recording that has been read, from 0 to 1. If it
/// throws, reading stops.
using ReadProgress = std::function<void(double)>;

/// The contents of one channel of a recording, counted from 0; by default the channel with the most
/// frames. Throws TapeError.
TapeContents contentsOf(Recording& recording, std::optional<std::size_t> channel,
                        const ReadProgress& progress);

} // namespace vexa
