#include "defaults/user_defaults.h"

#include "defaults/BackgroundWrites.h"
#include "defaults/settings_file.h"

namespace vexa::defaults {

Preferences read() {
    // Before the file is read: a change written in between is then found in the file.
    const auto* background = BackgroundWrites::current();
    const auto unwritten = background ? background->unwritten() : Preferences();
    auto result = readSettingsFile();
    append(result, unwritten);
    return result;
}

void write(const Preferences& change) {
    if (auto* background = BackgroundWrites::current())
        background->add(change);
    else
        changeSettingsFile(change);
}

} // namespace vexa::defaults
