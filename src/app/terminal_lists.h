#pragma once

namespace vexa {

struct CommandLine;

// Work on list files, without a window or MIDI. Both functions return the program's exit code: 0 if
// all is well, 1 if something needs attention, 2 if a file cannot be used.

/// Adds the rows of the file to the list and reports the lines that are not rows. If there are no
/// rows, the list is left as it is.
int importInTerminal(const CommandLine& line);

/// Prints the remarks on the list and the totals of its reels.
int checkInTerminal(const CommandLine& line);

} // namespace vexa
