#include "files/atomic_file.h"

#include "files/FileDescriptor.h"
#include "files/extended_attributes.h"

#include <QFile>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>

namespace vexa {

namespace {

namespace fs = std::filesystem;

/// The path with symbolic links followed. The target need not exist.
fs::path targetOf(fs::path path) {
    constexpr int mostLinks = 40; // the system's own limit
    std::error_code error;
    for (int links = 0; links < mostLinks && fs::is_symlink(path, error); ++links)
        path = path.parent_path() / fs::read_symlink(path, error);
    return path;
}

/// A file that replaces another in the same folder, or is removed. Its name is not derived from the
/// other's, which may already be as long as the system allows.
class Successor {
public:
    Successor(int folder, mode_t mode)
        : m_folder(folder),
          m_name(".vexa-" + std::to_string(QRandomGenerator::system()->generate64())),
          m_file(openat(folder, m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode)) {}
    ~Successor() {
        if (m_file >= 0 && !m_inPlace)
            unlinkat(m_folder, m_name.c_str(), 0);
    }
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    int file() const { return m_file; }

    bool write(const QByteArray& bytes) {
        QFile stream;
        return m_file >= 0 && stream.open(m_file, QIODevice::WriteOnly | QIODevice::Unbuffered) &&
               stream.write(bytes) == bytes.size() && fsync(m_file) == 0;
    }

    bool takePlaceOf(const char* name) {
        m_inPlace = renameat(m_folder, m_name.c_str(), m_folder, name) == 0;
        return m_inPlace;
    }

private:
    int m_folder;
    std::string m_name;
    FileDescriptor m_file;
    bool m_inPlace = false;
};

void keepAttributes(const struct stat& status, int before, int after) {
    // Only root may change the owner, but others may keep a group that they are members of.
    static_cast<void>(fchown(after, status.st_uid, status.st_gid) == 0 ||
                      fchown(after, static_cast<uid_t>(-1), status.st_gid) == 0);
    fchmod(after, status.st_mode & 07777);
    copyExtendedAttributes(before, after); // last, as an access list sets permissions too
}

} // namespace

bool replaceFile(const QString& path, const QByteArray& bytes, mode_t newFileMode) {
    const auto target = targetOf(QFile::encodeName(path).toStdString());
    const auto name = target.filename().string();
    // Opened relative to its folder: the path may already be as long as the system allows.
    const FileDescriptor folder(open(target.has_parent_path() ? target.parent_path().c_str() : ".",
                                     O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat status{};
    const bool exists = fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    if (exists &&
        (!S_ISREG(status.st_mode) || faccessat(folder, name.c_str(), W_OK, AT_EACCESS) != 0))
        return false;

    Successor successor(folder, exists ? 0600 : newFileMode);
    if (exists) {
        const FileDescriptor old(
            openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        keepAttributes(status, old, successor.file());
    }
    return successor.write(bytes) && successor.takePlaceOf(name.c_str());
}

} // namespace vexa
