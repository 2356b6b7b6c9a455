#pragma once

#include "tape/signal_shaper.h"
#include "tape/tape_word.h"

#include <functional>
#include <memory>
#include <span>

struct LTCDecoder;

namespace vexa {

/// Reads the words of a recorded channel.
class WordReader {
public:
    explicit WordReader(std::uint32_t sampleRate);

    /// The next samples, of which the first and every `stride`th after it are the channel's.
    void read(std::span<const float> samples, std::size_t stride,
              const std::function<void(const TapeWord&)>& onWord);

    /// What the last samples make, which were still under way.
    void finish(const std::function<void(const TapeWord&)>& onWord);

private:
    void decode(const std::function<void(const TapeWord&)>& onWord);

    SignalShaper m_shaper;
    std::unique_ptr<LTCDecoder, int (*)(LTCDecoder*)> m_decoder;
    long long m_position; ///< of the next sample that the decoder gets
};

} // namespace vexa
