#pragma once

#include <sys/resource.h>

#include <csignal>

namespace vexa::test {

/// While it exists, limits the size of this process's files, like a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        m_handler = signal(SIGXFSZ, SIG_IGN);
    }
    ~FileSizeLimit() {
        signal(SIGXFSZ, m_handler);
        setrlimit(RLIMIT_FSIZE, &m_before);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

} // namespace vexa::test
