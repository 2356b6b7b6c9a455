#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace vexa {

/// A sound file that is read from its beginning to its end: WAV, FLAC, AIFF, or whatever else
/// libsndfile reads. Throws TapeError where there is none.
class Recording {
public:
    explicit Recording(const std::filesystem::path& path);
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    std::uint32_t sampleRate() const;
    std::size_t channels() const;

    /// How many samples of each channel the file says it has.
    std::uint64_t length() const;

    /// The next samples, those of all channels in turn: as many as have room. Fewer than one of
    /// each channel, none, at the end.
    std::span<const float> read(std::span<float> room);

    /// Why the reading ended before the end of the file; empty where it did not.
    std::string fault() const;

private:
    class File;

    std::unique_ptr<File> m_file;
};

} // namespace vexa
