#pragma once

#include "tape/tape_file.h"
#include "tape/wave_file.h"

#include <filesystem>
#include <functional>

namespace vexa {

struct RenderOptions {
    static constexpr double lowestLevel = -60;

    WaveFormat format;
    double level = -18; ///< of the peaks, in dBFS: lowestLevel to 0
    double pause = 0;   ///< seconds between rows of a file, 0.05 at least
    Existing existing = Existing::keep;
};

/// Called now and then with the finished part of a file, from 0 to 1. If it throws, the file is
/// abandoned and nothing of it remains.
using RenderProgress = std::function<void(double)>;

/// Renders a file into a folder. Its first sample is the first transition of the first word. The
/// last word is followed by one more transition and, a bit later, silence. A pause lasts from the
/// end of a row's last word to the next row's first. Throws TapeError.
void render(const TapeFile& file, const std::filesystem::path& folder, const RenderOptions& options,
            const RenderProgress& progress);

} // namespace vexa
