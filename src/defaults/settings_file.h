#pragma once

#include "defaults/Preferences.h"

namespace vexa::defaults {

/// The settings in the file now. Any thread.
Preferences readSettingsFile();

/// Makes the change in the file before it returns, as write() describes. Any thread.
void changeSettingsFile(const Preferences& change);

} // namespace vexa::defaults
