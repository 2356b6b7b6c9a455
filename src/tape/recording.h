#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace vexa {

/// A sound file, read from beginning to end: WAV, FLAC, AIFF, or another format of libsndfile.
/// Throws TapeError if it cannot be opened.
class Recording {
public:
    explicit Recording(const std::filesystem::path& path);
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    std::uint32_t sampleRate() const;
    std::size_t channels() const;

    /// The number of samples per channel, as stated in the file.
    std::uint64_t length() const;

    /// Reads the next samples, interleaved by channel, as many as fit. None at the end.
    std::span<const float> read(std::span<float> room);

    /// Why reading stopped before the end of what was recorded; empty if it did not. libsndfile
    /// itself says nothing of a file that was cut short.
    std::string fault() const;

private:
    class File;

    std::unique_ptr<File> m_file;
};

} // namespace vexa
