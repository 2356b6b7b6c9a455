#pragma once

namespace vexa::test {

/// How often the program has allocated memory.
int allocations();

} // namespace vexa::test
