#pragma once

namespace vexa::test {

/// How often the program has asked for memory.
int allocations();

} // namespace vexa::test
