#include "files/atomic_file.h"

#include "files/FileDescriptor.h"
#include "files/Successor.h"
#include "files/extended_attributes.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

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

bool writeTo(int file, const QByteArray& bytes) {
    QFile stream;
    return file >= 0 && stream.open(file, QIODevice::WriteOnly | QIODevice::Unbuffered) &&
           stream.write(bytes) == bytes.size() && fsync(file) == 0;
}

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
    return writeTo(successor.file(), bytes) && successor.takePlaceOf(name.c_str());
}

} // namespace vexa
