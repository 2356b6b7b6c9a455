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

/// Finds the stretches in the samples of one channel, however many samples there are.
class ChannelReader {
public:
    /// A tape of nothing but noise has no end of stretches. Those beyond are counted only.
    static constexpr std::size_t mostStretches = 2000;

    explicit ChannelReader(std::uint32_t sampleRate);
    ChannelReader(const ChannelReader&) = delete;
    ChannelReader& operator=(const ChannelReader&) = delete;

    /// The next samples, of which the first and every `stride`th after it are the channel's.
    void read(std::span<const float> samples, std::size_t stride);
    void finish();

    const std::vector<Stretch>& stretches() const { return m_stretches; }
    std::uint64_t stretchesBeyond() const { return m_beyond; }
    std::uint64_t framesRead() const { return m_framesRead; }
    /// Of the last word; none before the first.
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

/// Told now and then which part of a recording has been read, from 0 to 1. What it throws breaks
/// the reading off.
using ReadProgress = std::function<void(double)>;

/// What a recording has in one of its channels, counted from 0; by default in the one that has most
/// frames. Throws TapeError.
TapeContents contentsOf(Recording& recording, std::optional<std::size_t> channel,
                        const ReadProgress& progress);

} // namespace vexa
