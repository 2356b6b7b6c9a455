#pragma once

#include <gtest/gtest.h>

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vexa::test {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool isMemoryOurs = false; ///< sanitizers take a multiple of it for themselves
#else
inline constexpr bool isMemoryOurs = true;
#endif

/// The most memory, in MiB, that a copy of this process has resident while it does something.
template<typename Action>
long peakMemory(Action action) {
    malloc_trim(0); // what earlier tests have let go
    const pid_t child = fork();
    if (child == 0) {
        action();
        _exit(0);
    }
    int status = 0;
    rusage usage{};
    EXPECT_EQ(wait4(child, &status, 0, &usage), child);
    EXPECT_TRUE(WIFEXITED(status)) << "it ended by a signal";
    return usage.ru_maxrss / 1024;
}

} // namespace vexa::test
