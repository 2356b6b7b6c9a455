#pragma once

namespace vexa::ltc_tool {

/// From now on signals that ask the program to end only take note of that, and a reader of the
/// output that has gone away is no reason to end.
void noteInterruptions();

/// Whether there was one.
bool wasInterrupted();

/// Thrown by what is broken off for it.
struct Interrupted {};

} // namespace vexa::ltc_tool
