#pragma once

#include <gtest/gtest.h>

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vexa::test {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool isMemoryOurs = false; ///< sanitizers use a multiple of it
#else
inline constexpr bool isMemoryOurs = true;
#endif

/// The peak resident memory, in MiB, of a copy of this process during the action.
template<typename Action>
long peakMemory(Action action) {
    malloc_trim(0); // memory freed by earlier tests
    const pid_t child = fork();
    if (child == 0) {
        action();
        _exit(0);
    }
    int status = 0;
    rusage usage{};
    EXPECT_EQ(wait4(child, &status, 0, &usage), child);
    EXPECT_TRUE(WIFEXITED(status)) << "ended by a signal";
    return usage.ru_maxrss / 1024;
}

} // namespace vexa::test
