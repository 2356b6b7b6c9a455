#pragma once

#include "files/FileDescriptor.h"

#include <sys/types.h>

#include <string>

namespace vexa {

/// A file that will replace another in the same folder, or take a free place there. Its name does
/// not derive from the other's, which may have the maximum length. It is removed unless it takes
/// the place.
class Successor {
public:
    /// folder: a descriptor that stays open as long as this lives.
    Successor(int folder, mode_t mode);
    ~Successor();
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    /// Open for writing; -1 if the file could not be created, with the reason in errno.
    int file() const { return m_file; }

    bool takePlaceOf(const char* name);

    /// Only if the place is free; otherwise errno is EEXIST.
    bool takeFreePlace(const char* name);

private:
    int m_folder;
    std::string m_name;
    FileDescriptor m_file;
    bool m_inPlace = false;
};

} // namespace vexa
