#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace vexa {

struct WaveFormat {
    std::uint32_t sampleRate = 48000;
    int bits = 24; ///< 16 or 24
};

/// The metadata of a WAV file. It has no creation date, so the same sound gives the same bytes.
struct WaveLabel {
    std::string description;          ///< cut after 255 bytes
    std::uint64_t startTime = 0;      ///< of the first sample, in samples since midnight
    std::uint64_t expectedLength = 0; ///< in samples; selects RF64 above 4 GiB
};

enum class Existing { keep, replace };

/// Writes a broadcast WAV file of one channel. The file appears under its name only when finished;
/// if abandoned, it leaves nothing behind. It is not synced to disk, as a file lost in a power
/// failure can be rendered again. Throws TapeError.
class WaveFile {
public:
    WaveFile(const std::filesystem::path& path, const WaveFormat& format, const WaveLabel& label,
             Existing existing);
    ~WaveFile();
    WaveFile(const WaveFile&) = delete;
    WaveFile& operator=(const WaveFile&) = delete;

    /// Samples from -1 to 1.
    void write(std::span<const float> samples);

    /// Moves the file into place.
    void finish();

private:
    class Stream;

    std::unique_ptr<Stream> m_stream;
};

} // namespace vexa
