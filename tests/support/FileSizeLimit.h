#pragma once

#include <sys/resource.h>

#include <csignal>

namespace vexa::test {

/// While it lives, this process's files end at so many bytes, as on a disk that is full.
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
