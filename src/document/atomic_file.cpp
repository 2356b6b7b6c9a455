#include "document/atomic_file.h"

#include <QFile>
#include <QSaveFile>

#include <sys/stat.h>
#include <unistd.h>

namespace vexa {

namespace {

/// QSaveFile sees to permissions, links and the disk, but leaves the new file to whoever saves.
void keepOwner(int file, const QString& path) {
    struct stat old {};
    if (stat(QFile::encodeName(path).constData(), &old) != 0)
        return;
    // Only root gives files away; a group that one is a member of can be kept all the same.
    static_cast<void>(fchown(file, old.st_uid, old.st_gid) == 0 ||
                      fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0);
}

} // namespace

bool replaceFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    keepOwner(file.handle(), path);
    // By itself QSaveFile would put half a file in place: it misses writes that fall short, and
    // what a full disk answers to the sync.
    if (file.write(bytes) != bytes.size() || fsync(file.handle()) != 0)
        file.cancelWriting();
    return file.commit();
}

} // namespace vexa
