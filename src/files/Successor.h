#pragma once

#include "files/FileDescriptor.h"

#include <sys/types.h>

#include <string>

namespace vexa {

/// A file that is to take the place of another in the same folder, or a place that is free. Its
/// name has nothing of the other's, which may be as long as names can be. It is removed unless it
/// takes the place.
class Successor {
public:
    /// In a folder that stays open as long as this lives.
    Successor(int folder, mode_t mode);
    ~Successor();
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    /// Open for writing; -1 where it could not be made, and errno tells why.
    int file() const { return m_file; }

    bool takePlaceOf(const char* name);

    /// Only where the place is free; where it is not, errno is EEXIST.
    bool takeFreePlace(const char* name);

private:
    int m_folder;
    std::string m_name;
    FileDescriptor m_file;
    bool m_inPlace = false;
};

} // namespace vexa
