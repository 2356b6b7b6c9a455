#include "tape/tape_reader.h"

#include "tape/tape_error.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace vexa {

ChannelReader::ChannelReader(std::uint32_t sampleRate)
    : m_words(sampleRate),
      m_finder(sampleRate, [this](Stretch stretch) { add(std::move(stretch)); }) {}

void ChannelReader::read(std::span<const float> samples, std::size_t stride) {
    m_words.read(samples, stride, [this](const TapeWord& word) { take(word); });
    m_position += (samples.size() + stride - 1) / stride;
    m_finder.reached(static_cast<double>(m_position));
}

void ChannelReader::finish() {
    m_words.finish([this](const TapeWord& word) { take(word); });
    m_finder.finish();
}

void ChannelReader::take(const TapeWord& word) {
    m_lastTime = word.time;
    m_finder.take(word);
}

void ChannelReader::add(Stretch stretch) {
    m_framesRead += stretch.frames - stretch.unread;
    if (m_stretches.size() < mostStretches)
        m_stretches.push_back(std::move(stretch));
    else
        ++m_beyond;
}

TapeContents contentsOf(Recording& recording, std::optional<std::size_t> channel,
                        const ReadProgress& progress) {
    constexpr std::size_t blockFrames = 4096;
    const auto stride = recording.channels();
    if (channel && *channel >= stride)
        throw TapeError("there is no channel " + std::to_string(*channel + 1) + " among " +
                        std::to_string(stride));
    std::vector<std::unique_ptr<ChannelReader>> readers(stride);
    for (std::size_t i = 0; i < stride; ++i)
        if (!channel || i == *channel)
            readers[i] = std::make_unique<ChannelReader>(recording.sampleRate());

    std::vector<float> room(blockFrames * stride);
    std::uint64_t done = 0;
    for (auto block = recording.read(room); !block.empty(); block = recording.read(room)) {
        for (std::size_t i = 0; i < stride; ++i)
            if (readers[i])
                readers[i]->read(block.subspan(i), stride);
        done += block.size() / stride;
        progress(static_cast<double>(done) / static_cast<double>(recording.length()));
    }

    const auto framesRead = [](const auto& reader) { return reader ? reader->framesRead() : 0; };
    for (const auto& reader : readers)
        if (reader)
            reader->finish();
    const auto best = channel ? readers.begin() + static_cast<std::ptrdiff_t>(*channel)
                              : std::ranges::max_element(readers, {}, framesRead);
    TapeContents contents;
    contents.sampleRate = recording.sampleRate();
    contents.length = done;
    contents.channel = static_cast<std::size_t>(best - readers.begin());
    contents.channels = stride;
    contents.stretches = (*best)->stretches();
    contents.stretchesBeyond = (*best)->stretchesBeyond();
    contents.readError = recording.fault();
    return contents;
}

} // namespace vexa
