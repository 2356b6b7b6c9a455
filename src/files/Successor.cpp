#include "files/Successor.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace vexa {

Successor::Successor(int folder, mode_t mode)
    : m_folder(folder),
      m_name(".vexa-" + std::to_string(QRandomGenerator::system()->generate64())),
      m_file(openat(folder, m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode)) {}

Successor::~Successor() {
    if (m_file >= 0 && !m_inPlace)
        unlinkat(m_folder, m_name.c_str(), 0);
}

bool Successor::takePlaceOf(const char* name) {
    m_inPlace = renameat(m_folder, m_name.c_str(), m_folder, name) == 0;
    return m_inPlace;
}

bool Successor::takeFreePlace(const char* name) {
    m_inPlace = renameat2(m_folder, m_name.c_str(), m_folder, name, RENAME_NOREPLACE) == 0;
    if (m_inPlace || errno != EINVAL)
        return m_inPlace;
    // This file system cannot check and rename in one step.
    if (faccessat(m_folder, name, F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return false;
    }
    return takePlaceOf(name);
}

} // namespace vexa
