#pragma once

#include "defaults/Preferences.h"

namespace vexa {

/// The settings of the user who runs the program: an INI file below $XDG_CONFIG_HOME, which only
/// its owner may read. It is read whole and, in one step, replaced whole.
///
/// A file that cannot be read counts as empty, and one that cannot be written keeps what it held;
/// so does what is no regular file. What can be read of a broken file is kept, and the whole is
/// copied to a file of its name and "~". A file of more than a mebibyte counts as empty, and the
/// next write moves it there. Main thread only.
namespace defaults {

/// What was written last, on disk or not, over what is in the file.
Preferences read();

/// Makes the change in the file, whatever other programs write meanwhile. It is on disk when the
/// call returns, unless there are BackgroundWrites. Where another program holds the file for longer
/// than half a second, nothing is written.
void write(const Preferences& change);

} // namespace defaults
} // namespace vexa
