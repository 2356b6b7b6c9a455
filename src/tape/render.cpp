#include "tape/render.h"

#include "ltc/ltc_signal.h"
#include "timecode/frame_number.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vexa {

namespace {

/// In seconds. After a shorter pause, a decoder may miss the next row's first word.
constexpr double shortestPause = 0.05;

/// The first sample after that many frames, rounded up as in the signal.
std::uint64_t samplesOf(std::uint64_t frames, const FrameRate& rate, std::uint32_t sampleRate) {
    return (frames * sampleRate * rate.seconds + rate.frames - 1) / rate.frames;
}

std::uint64_t samplesOf(const TapeRow& row, std::uint32_t sampleRate) {
    return samplesOf(frameCount(row), *row.rate, sampleRate);
}

/// Writes the rows of a file from the signal to the disk.
class Rendering {
public:
    Rendering(const RenderOptions& options, std::uint64_t pause, WaveFile& wave,
              std::uint64_t length, const RenderProgress& progress)
        : m_sampleRate(options.format.sampleRate),
          m_pause(pause),
          m_signal(m_sampleRate, options.level),
          m_wave(wave),
          m_length(static_cast<double>(length)),
          m_progress(progress) {}

    void row(const TapeRow& row, bool isLast) {
        m_signal.start({row.start, *row.rate, frameCount(row), reelUserBits(row.reel)});
        const auto leadIn = m_signal.leadIn();
        if (m_done == 0)
            skip(leadIn); // decoders need none at the start of a file
        else
            write(leadIn);
        write(samplesOf(row, m_sampleRate));
        // This includes 0.6 ms for a bit at 24 frames and the edge after it.
        write(isLast ? m_sampleRate / 1000 : m_pause - leadIn);
    }

private:
    void skip(std::uint64_t samples) { m_signal.render(std::span(m_block).first(samples)); }

    void write(std::uint64_t samples) {
        while (samples > 0) {
            const auto part =
                std::span(m_block).first(std::min<std::uint64_t>(samples, m_block.size()));
            m_signal.render(part);
            m_wave.write(part);
            m_done += part.size();
            samples -= part.size();
            if (part.size() == m_block.size())
                m_progress(std::min(1.0, static_cast<double>(m_done) / m_length));
        }
    }

    std::uint32_t m_sampleRate;
    std::uint64_t m_pause; ///< in samples
    LtcSignal m_signal;
    WaveFile& m_wave;
    double m_length;
    const RenderProgress& m_progress;
    std::uint64_t m_done = 0;
    std::array<float, 16384> m_block;
};

std::string description(const TapeFile& file) {
    const auto& row = file.rows.front();
    return "Reel " + std::to_string(row.reel) + ", " + timecodeText(row.start) + ", " +
           std::string(row.rate->name) + (row.title.empty() ? "" : ", " + row.title);
}

/// Rounded to the nearest sample.
std::uint64_t sinceMidnight(const TapeRow& row, std::uint32_t sampleRate) {
    const auto twice =
        2 * frameNumber(row.start, *row.rate) * sampleRate * row.rate->seconds / row.rate->frames;
    return (twice + 1) / 2;
}

} // namespace

void render(const TapeFile& file, const std::filesystem::path& folder, const RenderOptions& options,
            const RenderProgress& progress) {
    const auto sampleRate = options.format.sampleRate;
    const auto pause = static_cast<std::uint64_t>(
        std::llround(std::max(options.pause, shortestPause) * sampleRate));
    std::uint64_t length = pause * (file.rows.size() - 1);
    for (const auto& row : file.rows)
        length += samplesOf(row, sampleRate);
    const auto& first = file.rows.front();
    WaveFile wave(folder / file.name, options.format,
                  {description(file), sinceMidnight(first, sampleRate), length}, options.existing);
    Rendering rendering(options, pause, wave, length, progress);
    for (const auto& row : file.rows)
        rendering.row(row, &row == &file.rows.back());
    wave.finish();
}

} // namespace vexa
