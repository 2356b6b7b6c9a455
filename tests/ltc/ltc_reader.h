#pragma once

#include "timecode/timecode.h"

#include <ltc.h>

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

/// All words that libltc decodes from the samples.
inline std::vector<ReadWord> wordsIn(std::span<const float> samples, std::uint32_t sampleRate,
                                     const FrameRate& rate) {
    constexpr std::size_t blockSize = 1024;
    const auto samplesAFrame = static_cast<int>(sampleRate * rate.seconds / rate.frames);
    const std::unique_ptr<LTCDecoder, int (*)(LTCDecoder*)> decoder(
        ltc_decoder_create(samplesAFrame, 64), ltc_decoder_free);
    std::vector<ReadWord> words;
    std::vector<float> block;
    for (std::size_t done = 0; done < samples.size(); done += blockSize) {
        const auto part = samples.subspan(done, std::min(blockSize, samples.size() - done));
        block.assign(part.begin(), part.end());
        ltc_decoder_write_float(decoder.get(), block.data(), block.size(),
                                static_cast<ltc_off_t>(done));
        LTCFrameExt frame;
        while (ltc_decoder_read(decoder.get(), &frame) > 0) {
            SMPTETimecode time;
            ltc_frame_to_time(&time, &frame.ltc, 0);
            words.push_back({{time.hours, time.mins, time.secs, time.frame}, frame.ltc.dfbit != 0});
        }
    }
    return words;
}

} // namespace vexa::test
