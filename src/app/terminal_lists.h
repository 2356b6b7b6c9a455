#pragma once

namespace vexa {

struct CommandLine;

// Work on list files, without a window and without MIDI. Both return the program's exit code: 0
// when all is well, 1 when there is something to look at, 2 when a file is not what it should be.

/// Adds the rows of the file to the list and names the lines that are no rows. Without a row, the
/// list stays as it is.
int importInTerminal(const CommandLine& line);

/// Prints what is to be said of the list, and the totals of its reels.
int checkInTerminal(const CommandLine& line);

} // namespace vexa
