#include "support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<int> count = 0;
}

void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

int vexa::test::allocations() { return count; }
