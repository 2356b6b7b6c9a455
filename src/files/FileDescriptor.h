#pragma once

#include <unistd.h>

namespace vexa {

/// Owns an open file, or -1.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    ~FileDescriptor() {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    operator int() const { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace vexa
