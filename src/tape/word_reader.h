#pragma once

#include "tape/signal_shaper.h"
#include "tape/tape_word.h"

#include <functional>
#include <memory>
#include <span>

struct LTCDecoder;

namespace vexa {

/// Reads the words in a recorded channel.
class WordReader {
public:
    explicit WordReader(std::uint32_t sampleRate);

    /// Takes the next samples; the first and every `stride`th after it belong to the channel.
    void read(std::span<const float> samples, std::size_t stride,
              const std::function<void(const TapeWord&)>& onWord);

    /// Reads the words that remain in the last samples.
    void finish(const std::function<void(const TapeWord&)>& onWord);

private:
    void renewDecoder();
    void write(std::span<const std::uint8_t> shaped);
    void decode(const std::function<void(const TapeWord&)>& onWord);

    SignalShaper m_shaper;
    std::uint32_t m_sampleRate;
    std::unique_ptr<LTCDecoder, int (*)(LTCDecoder*)> m_decoder;
    bool m_isFresh = true;       ///< the decoder has heard nothing but silence
    std::size_t m_silence = 0;   ///< samples, up to now
    long long m_position = 0;    ///< of the next sample that the decoder gets
    long long m_signalBegin = 0; ///< after silence
};

} // namespace vexa
