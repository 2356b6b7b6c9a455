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

/// What a WAV file says of itself. It has no date of its making: the same sound gives the same
/// bytes.
struct WaveLabel {
    std::string description;          ///< cut after 255 bytes
    std::uint64_t startTime = 0;      ///< of the first sample: samples since midnight
    std::uint64_t expectedLength = 0; ///< in samples; decides on RF64, which has no limit of 4 GiB
};

enum class Existing { Keep, Replace };

/// A broadcast WAV file of one channel in the making. Nothing is to be seen of it, in the folder,
/// under its name before it is finished; given up sooner, it leaves nothing behind. It is not
/// synced to the disk: what a power failure takes can be rendered again. Throws TapeError.
class WaveFile {
public:
    WaveFile(const std::filesystem::path& path, const WaveFormat& format, const WaveLabel& label,
             Existing existing);
    ~WaveFile();
    WaveFile(const WaveFile&) = delete;
    WaveFile& operator=(const WaveFile&) = delete;

    /// Samples from -1 to 1.
    void write(std::span<const float> samples);

    /// Puts the file into its place.
    void finish();

private:
    class Stream;

    std::unique_ptr<Stream> m_stream;
};

} // namespace vexa
