#pragma once

#include "defaults/Preferences.h"

namespace vexa::defaults {

/// What is in the file of settings now. Any thread.
Preferences readSettingsFile();

/// Makes the change in the file before it returns; see write(). Any thread.
void changeSettingsFile(const Preferences& change);

} // namespace vexa::defaults
