#include "tape/recording.h"

#include "files/FileDescriptor.h"
#include "tape/stated_size.h"
#include "tape/tape_error.h"

#include <fcntl.h>
#include <sndfile.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace vexa {

namespace {
constexpr int lowestRate = 8000;
constexpr int highestRate = 768000;
constexpr int mostChannels = 64;

/// In bytes. Some recorders state a few too many; fewer than these hold no word.
constexpr std::uint64_t leastShortfall = 64;
} // namespace

class Recording::File {
public:
    explicit File(const std::filesystem::path& path)
        : m_descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
        const auto fail = [&path](const std::string& reason) {
            throw TapeError("cannot read \"" + path.string() + "\": " + reason);
        };
        struct stat status{};
        if (m_descriptor < 0 || fstat(m_descriptor, &status) != 0)
            fail(std::strerror(errno));
        if (!S_ISREG(status.st_mode))
            fail("it is not a regular file");
        sound.reset(sf_open_fd(m_descriptor, SFM_READ, &info, SF_FALSE));
        if (!sound)
            fail(sf_strerror(nullptr));
        const auto size = static_cast<std::uint64_t>(status.st_size);
        if (const auto stated = statedSize(m_descriptor); stated && *stated > size)
            shortfall = *stated - size;
        if (info.samplerate < lowestRate || info.samplerate > highestRate)
            fail(std::to_string(info.samplerate) + " samples a second are out of range");
        if (info.channels < 1 || info.channels > mostChannels)
            fail("it has " + std::to_string(info.channels) + " channels");
    }

    struct Close {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };

    FileDescriptor m_descriptor;
    std::uint64_t shortfall = 0; ///< bytes that the file states and does not have
    SF_INFO info{};
    std::unique_ptr<SNDFILE, Close> sound;
};

Recording::Recording(const std::filesystem::path& path) : m_file(std::make_unique<File>(path)) {}

Recording::~Recording() = default;

std::uint32_t Recording::sampleRate() const {
    return static_cast<std::uint32_t>(m_file->info.samplerate);
}

std::size_t Recording::channels() const { return static_cast<std::size_t>(m_file->info.channels); }

std::uint64_t Recording::length() const { return static_cast<std::uint64_t>(m_file->info.frames); }

std::span<const float> Recording::read(std::span<float> room) {
    const auto frames = room.size() / channels();
    const auto read =
        sf_readf_float(m_file->sound.get(), room.data(), static_cast<sf_count_t>(frames));
    return room.first(static_cast<std::size_t>(std::max<sf_count_t>(read, 0)) * channels());
}

std::string Recording::fault() const {
    if (sf_error(m_file->sound.get()) != SF_ERR_NO_ERROR)
        return sf_strerror(m_file->sound.get());
    if (m_file->shortfall >= leastShortfall)
        return "the file is " + std::to_string(m_file->shortfall) + " bytes shorter than it says";
    return {};
}

} // namespace vexa
