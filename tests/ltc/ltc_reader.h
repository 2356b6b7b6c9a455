#pragma once

#include "timecode/timecode.h"

#include <ltc.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <span>
#include <vector>

namespace vexa::test {

/// A word decoded by libltc.
struct ReadWord {
    Timecode time;
    bool dropFrame;

    bool operator==(const ReadWord&) const = default;
};

inline void PrintTo(const ReadWord& word, std::ostream* out) {
    *out << timecodeText(word.time) << (word.dropFrame ? " df" : "");
}

/// Decodes a signal by libltc, a block after another.
class LtcReader {
public:
    LtcReader(std::uint32_t sampleRate, const FrameRate& rate)
        : m_decoder(ltc_decoder_create(static_cast<int>(sampleRate * rate.seconds / rate.frames),
                                       queuedWords),
                    ltc_decoder_free) {}

    /// Reads the next samples. Returns the words that end in them.
    std::vector<ReadWord> read(std::span<const float> samples) {
        std::vector<ReadWord> words;
        while (!samples.empty()) {
            const auto part = samples.first(std::min(blockSize, samples.size()));
            samples = samples.subspan(part.size());
            m_block.assign(part.begin(), part.end()); // libltc wants to write to it
            ltc_decoder_write_float(m_decoder.get(), m_block.data(), m_block.size(), m_position);
            m_position += static_cast<ltc_off_t>(part.size());
            LTCFrameExt frame;
            while (ltc_decoder_read(m_decoder.get(), &frame) > 0) {
                SMPTETimecode time;
                ltc_frame_to_time(&time, &frame.ltc, 0);
                words.push_back(
                    {{time.hours, time.mins, time.secs, time.frame}, frame.ltc.dfbit != 0});
            }
        }
        return words;
    }

private:
    static constexpr std::size_t blockSize = 1024;
    static constexpr int queuedWords = 64;

    std::unique_ptr<LTCDecoder, int (*)(LTCDecoder*)> m_decoder;
    std::vector<float> m_block;
    ltc_off_t m_position = 0;
};

/// All words that libltc decodes from the samples.
inline std::vector<ReadWord> wordsIn(std::span<const float> samples, std::uint32_t sampleRate,
                                     const FrameRate& rate) {
    return LtcReader(sampleRate, rate).read(samples);
}

} // namespace vexa::test
