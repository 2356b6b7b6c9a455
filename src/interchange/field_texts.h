#pragma once

#include "timecode/timecode.h"

#include <QStringView>

#include <cstdint>
#include <optional>

namespace vexa {

// Fields as people write them in spreadsheets, edit lists and mails. Blanks around them, and the
// case of letters, do not count.

/// A time as it was written.
struct WrittenTime {
    Timecode time;
    bool isDropFrame = false; ///< by a semicolon before the frames
};

/// "01:02:03:04", with one or two digits a field, ';' in place of ':' and '.' before the frames; or
/// seven or eight digits alone. The values are not checked.
std::optional<WrittenTime> timeFromText(QStringView text);

/// The code of the rate meant by such as "25", "25.00 fps", "30 NDF", "29.97" or "29.97 DF".
/// Nothing for rates that cannot be chosen.
std::optional<std::uint64_t> rateFromText(QStringView text);

/// The code of a sync type by its name.
std::optional<std::uint64_t> syncTypeFromText(QStringView text);

/// A whole number, with letters and signs before it or not: "7", "007", "Reel 7", "#7".
std::optional<std::uint64_t> reelFromText(QStringView text);

} // namespace vexa
