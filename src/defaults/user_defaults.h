#pragma once

#include "defaults/Preferences.h"

namespace vexa {

/// The user's settings, in an INI file in $XDG_CONFIG_HOME that only its owner may read. Every
/// write replaces the whole file atomically. Main thread only.
///
/// A file that cannot be read counts as empty. A file that cannot be written, or is no regular
/// file, does not change. A write to a broken file keeps its readable part and first copies the
/// original, with "~" added to the name. A file of more than a mebibyte counts as empty, and the
/// next write moves it to that name.
namespace defaults {

/// The settings in the file, with changes that are not on disk yet.
Preferences read();

/// Makes the change in the file and keeps what other programs write there. The change is on disk
/// when this returns, unless a BackgroundWrites exists. Writes nothing if another program holds
/// the lock for half a second.
void write(const Preferences& change);

} // namespace defaults
} // namespace vexa
