#include "tape/wave_file.h"

#include "files/Successor.h"
#include "tape/tape_error.h"
#include "text/utf8_prefix.h"

#include <fcntl.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

namespace vexa {

namespace {

/// Leaves room for everything but sound in the 4 GiB of a plain WAV file.
constexpr std::uint64_t mostPlainBytes = 0xFFF00000;

SF_INFO soundInfo(const WaveFormat& format, const WaveLabel& label) {
    SF_INFO info{};
    info.samplerate = static_cast<int>(format.sampleRate);
    info.channels = 1;
    const auto bytes = label.expectedLength * static_cast<unsigned>(format.bits) / 8;
    info.format = (bytes > mostPlainBytes ? SF_FORMAT_RF64 : SF_FORMAT_WAV) |
                  (format.bits == 16 ? SF_FORMAT_PCM_16 : SF_FORMAT_PCM_24);
    return info;
}

SF_BROADCAST_INFO broadcastInfo(const WaveLabel& label) {
    SF_BROADCAST_INFO info{};
    const auto text = utf8Prefix(label.description, sizeof info.description - 1);
    std::ranges::copy(text, info.description);
    std::ranges::copy(std::string_view("vexa-ltc"), info.originator);
    info.time_reference_low = static_cast<std::uint32_t>(label.startTime);
    info.time_reference_high = static_cast<std::uint32_t>(label.startTime >> 32);
    return info;
}

} // namespace

/// libsndfile writes through this, which keeps the system's reason for a failure.
class WaveFile::Stream {
public:
    Stream(const std::filesystem::path& path, const WaveFormat& format, const WaveLabel& label,
           Existing existing)
        : m_path(path),
          m_folder(open(path.has_parent_path() ? path.parent_path().c_str() : ".",
                        O_PATH | O_DIRECTORY | O_CLOEXEC)),
          m_existing(existing) {
        if (m_folder < 0)
            fail(errno);
        checkPlace();
        m_file.emplace(m_folder, 0666);
        if (m_file->file() < 0)
            fail(errno);
        auto info = soundInfo(format, label);
        m_sound = sf_open_virtual(&calls, SFM_WRITE, &info, this);
        if (!m_sound)
            fail(0);
        auto broadcast = broadcastInfo(label);
        sf_command(m_sound, SFC_SET_BROADCAST_INFO, &broadcast, sizeof broadcast);
    }

    ~Stream() { sf_close(m_sound); }

    void write(std::span<const float> samples) {
        const auto count = static_cast<sf_count_t>(samples.size());
        if (sf_write_float(m_sound, samples.data(), count) != count)
            fail(m_error);
    }

    void finish() {
        sf_close(std::exchange(m_sound, nullptr)); // writes the lengths
        if (m_error != 0)
            fail(m_error);
        const auto name = m_path.filename();
        if (!(m_existing == Existing::replace ? m_file->takePlaceOf(name.c_str())
                                              : m_file->takeFreePlace(name.c_str())))
            fail(errno);
    }

private:
    /// Checks before rendering. finish() checks again that the place is still free.
    void checkPlace() const {
        struct stat status{};
        if (fstatat(m_folder, m_path.filename().c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            return;
        if (m_existing == Existing::keep)
            fail(EEXIST);
        if (S_ISDIR(status.st_mode))
            fail(EISDIR);
    }

    [[noreturn]] void fail(int error) const {
        const auto name = '"' + m_path.string() + '"';
        if (error == EEXIST)
            throw TapeError(name + " exists already");
        throw TapeError("cannot write " + name + ": " +
                        (error == 0 ? sf_strerror(m_sound) : std::strerror(error)));
    }

    int file() const { return m_file->file(); }

    static Stream& of(void* self) { return *static_cast<Stream*>(self); }
    static sf_count_t length(void* self) {
        struct stat status{};
        return fstat(of(self).file(), &status) == 0 ? status.st_size : -1;
    }
    static sf_count_t seek(sf_count_t offset, int whence, void* self) {
        return lseek(of(self).file(), offset, whence);
    }
    static sf_count_t tell(void* self) { return seek(0, SEEK_CUR, self); }
    static sf_count_t readNothing(void*, sf_count_t, void*) { return 0; }
    static sf_count_t write(const void* bytes, sf_count_t count, void* self) {
        sf_count_t done = 0;
        while (done < count) {
            const auto written = ::write(of(self).file(), static_cast<const char*>(bytes) + done,
                                         static_cast<std::size_t>(count - done));
            if (written < 0 && errno == EINTR)
                continue;
            if (written < 0) {
                of(self).m_error = errno;
                break;
            }
            done += written;
        }
        return done;
    }

    static SF_VIRTUAL_IO calls;

    std::filesystem::path m_path;
    FileDescriptor m_folder;
    Existing m_existing;
    std::optional<Successor> m_file;
    SNDFILE* m_sound = nullptr;
    int m_error = 0; ///< of the last failed write
};

SF_VIRTUAL_IO WaveFile::Stream::calls{length, seek, readNothing, write, tell};

WaveFile::WaveFile(const std::filesystem::path& path, const WaveFormat& format,
                   const WaveLabel& label, Existing existing)
    : m_stream(std::make_unique<Stream>(path, format, label, existing)) {}

WaveFile::~WaveFile() = default;

void WaveFile::write(std::span<const float> samples) { m_stream->write(samples); }

void WaveFile::finish() { m_stream->finish(); }

} // namespace vexa
