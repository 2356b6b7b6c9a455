#include "mtc/quarter_frames.h"

namespace vexa {

namespace {
constexpr std::uint32_t piecesAFrame = 4;
} // namespace

QuarterFrames::QuarterFrames(const Timecode& first, const FrameRate& rate, std::uint32_t sampleRate)
    : m_rate(rate), m_steps(rate, sampleRate, piecesAFrame), m_time(first) {
    if (first.frames % 2 == 0)
        return;
    m_time = advanced(first, 1, rate);
    for (std::uint32_t piece = 0; piece < piecesAFrame; ++piece)
        m_steps.advance();
}

void QuarterFrames::advance() {
    m_steps.advance();
    if (++m_piece < mtcPieces)
        return;
    m_piece = 0;
    m_time = advanced(advanced(m_time, 1, m_rate), 1, m_rate);
}

} // namespace vexa
