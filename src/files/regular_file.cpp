#include "files/regular_file.h"

#include "files/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace vexa {

std::optional<QByteArray> readRegularFile(const QString& path, qsizetype limit) {
    // Without O_NONBLOCK, opening a pipe would wait for a writer.
    const FileDescriptor file(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status{};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > limit)
        return std::nullopt;

    // Files in /proc claim to be empty and may be endless, so the size is no guide. Memory costs
    // nothing until it is written to.
    QByteArray bytes(limit + 1, Qt::Uninitialized);
    qsizetype size = 0;
    while (size <= limit) {
        const auto length =
            read(file, bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (length < 0)
            return std::nullopt;
        if (length == 0) {
            bytes.truncate(size);
            return bytes;
        }
        size += length;
    }
    return std::nullopt;
}

} // namespace vexa
