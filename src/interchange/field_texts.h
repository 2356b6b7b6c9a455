#pragma once

#include "timecode/timecode.h"

#include <QStringView>

#include <cstdint>
#include <optional>

namespace vexa {

// Fields as people write them in spreadsheets, edit lists and mails. Surrounding blanks and case do
// not matter.

/// A time as written.
struct WrittenTime {
    Timecode time;
    bool isDropFrame = false; ///< a semicolon precedes the frames
};

/// "01:02:03:04", with one or two digits per field, ';' instead of ':' and '.' before the frames;
/// or just seven or eight digits. Does not check the values.
std::optional<WrittenTime> timeFromText(QStringView text);

/// The code of a rate written like "25", "25.00 fps", "30 NDF", "29.97" or "29.97 DF". Returns
/// nothing for rates that cannot be chosen.
std::optional<std::uint64_t> rateFromText(QStringView text);

/// The code of a sync type, given its name.
std::optional<std::uint64_t> syncTypeFromText(QStringView text);

/// A whole number, optionally after letters and signs: "7", "007", "Reel 7", "#7".
std::optional<std::uint64_t> reelFromText(QStringView text);

} // namespace vexa
