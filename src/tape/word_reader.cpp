#include "tape/word_reader.h"

#include <ltc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <numeric>

namespace vexa {

namespace {

/// The decoder's initial rate; it then follows the signal.
constexpr std::uint32_t framesASecond = 25;

/// A hundredth of a second of silence means that timecode has ended.
constexpr std::uint32_t silencesASecond = 100;

/// More words than the samples of one call can contain.
constexpr int queueSize = 64;
constexpr std::size_t mostSamples = 512;

LtcUserBits userBits(const LTCFrame& frame) {
    const std::array<unsigned, 8> groups{frame.user1, frame.user2, frame.user3, frame.user4,
                                         frame.user5, frame.user6, frame.user7, frame.user8};
    LtcUserBits bits = 0;
    for (std::size_t i = 0; i < groups.size(); ++i)
        bits |= groups[i] << 4 * i;
    return bits;
}

/// The lengths of bits that the decoder measured in the second half of a word. In the first half it
/// may still have been searching.
std::span<const float> bitLengths(const LTCFrameExt& frame) {
    return std::span(frame.biphase_tics).last(LTC_FRAME_BIT_COUNT / 2);
}

/// Timecode has equally long bits, apart from a sample more or less; noise does not.
bool isSteady(const LTCFrameExt& frame) {
    constexpr float tolerance = 0.05F;
    const auto [shortest, longest] = std::ranges::minmax(bitLengths(frame));
    return longest - shortest < 1 + tolerance * longest;
}

/// The decoder misplaces the beginning of a word that no other precedes.
double beginning(const LTCFrameExt& frame) {
    const auto lengths = bitLengths(frame);
    const double bit =
        std::reduce(lengths.begin(), lengths.end(), 0.0) / static_cast<double>(lengths.size());
    const auto told = static_cast<double>(frame.off_start);
    const auto expected = static_cast<double>(frame.off_end + 1) - LTC_FRAME_BIT_COUNT * bit;
    return std::abs(told - expected) < bit / 2 ? told : expected;
}

TapeWord tapeWord(LTCFrameExt& frame, float peak) {
    SMPTETimecode time;
    ltc_frame_to_time(&time, &frame.ltc, 0);
    return {{time.hours, time.mins, time.secs, time.frame},
            frame.ltc.dfbit != 0,
            userBits(frame.ltc),
            beginning(frame),
            static_cast<double>(frame.off_end + 1),
            peak};
}

/// Noise makes words, too, but most of them have invalid times.
bool isTime(const TapeWord& word, const LTCFrame& frame) {
    const bool areDigits = frame.frame_units < 10 && frame.secs_units < 10 &&
                           frame.mins_units < 10 && frame.hours_units < 10;
    return areDigits && word.time.hours < 24 && word.time.minutes < 60 && word.time.seconds < 60 &&
           word.time.frames < 30;
}

} // namespace

WordReader::WordReader(std::uint32_t sampleRate)
    : m_shaper(sampleRate), m_sampleRate(sampleRate), m_decoder(nullptr, ltc_decoder_free) {
    renewDecoder();
}

void WordReader::renewDecoder() {
    m_decoder.reset(ltc_decoder_create(static_cast<int>(m_sampleRate / framesASecond), queueSize));
    if (!m_decoder)
        throw std::bad_alloc();
    m_isFresh = true;
}

void WordReader::read(std::span<const float> samples, std::size_t stride,
                      const std::function<void(const TapeWord&)>& onWord) {
    while (!samples.empty()) {
        const auto part = samples.first(std::min(samples.size(), mostSamples * stride));
        const auto shaped = m_shaper.shape(part, stride);
        // Noise after timecode makes the decoder track a speed from which it does not recover.
        m_silence = m_shaper.isSilent() ? m_silence + shaped.size() : 0;
        if (m_isFresh && !m_shaper.isSilent()) {
            m_isFresh = false;
            m_signalBegin = m_position;
        }
        if (!m_isFresh && m_silence > m_sampleRate / silencesASecond)
            renewDecoder();
        write(shaped);
        decode(onWord);
        samples = samples.subspan(part.size());
    }
}

void WordReader::write(std::span<const std::uint8_t> shaped) {
    // The decoder does not change the samples, though it does not declare them const.
    ltc_decoder_write(m_decoder.get(), const_cast<ltcsnd_sample_t*>(shaped.data()), shaped.size(),
                      m_position);
    m_position += static_cast<long long>(shaped.size());
}

void WordReader::finish(const std::function<void(const TapeWord&)>& onWord) {
    const std::vector<float> silence(2 * m_shaper.lag(), m_shaper.mean());
    read(silence, 1, onWord);
}

void WordReader::decode(const std::function<void(const TapeWord&)>& onWord) {
    LTCFrameExt frame;
    while (ltc_decoder_read(m_decoder.get(), &frame) > 0) {
        auto word = tapeWord(frame, m_shaper.peak());
        const auto latest = static_cast<double>(m_signalBegin) + (word.end - word.begin) / 2;
        word.isClear = word.begin < latest && isSteady(frame);
        if (!frame.reverse && isTime(word, frame.ltc))
            onWord(word);
    }
}

} // namespace vexa
