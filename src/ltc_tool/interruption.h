#pragma once

namespace vexa::ltc_tool {

/// From now on, signals that ask the program to end only set a flag. A closed reader of the output
/// no longer ends the program.
void noteInterruptions();

/// Whether such a signal has arrived.
bool wasInterrupted();

/// Thrown to cancel work after such a signal.
struct Interrupted {};

} // namespace vexa::ltc_tool
