#pragma once

#include <QStringList>

#include <cstdint>
#include <map>
#include <optional>

namespace vexa {

class IniFile;

/// The settings that outlive a run, or a change to some of them. Absent settings were never set, or
/// do not change.
struct Preferences {
    static constexpr double standardDelay = 5; ///< if none was set

    std::optional<double> delayInSeconds{};          ///< between the items of a batch run
    std::optional<std::uint64_t> defaultFrameRate{}; ///< frame-rate code
    std::optional<std::uint64_t> defaultSyncType{};  ///< sync-type code
    std::optional<bool> pauseForReelChange{};
    std::optional<std::int32_t> midiDestination{}; ///< unique ID
    std::optional<std::int64_t> windowWidth{};     ///< pixels
    std::optional<std::int64_t> windowHeight{};    ///< pixels
    std::optional<bool> showsStatusLine{};
    std::optional<bool> showsDurations{};      ///< in a column of the batch table
    std::optional<std::int64_t> tapeMinutes{}; ///< of the list check; 0: any length
    std::optional<QStringList> recentFiles{};  ///< paths, newest first
    /// By the identifier of a column of the batch table, in pixels.
    std::map<QString, std::int64_t> columnWidths{};

    bool operator==(const Preferences&) const = default;
};

/// The settings in the file, whatever the type of its values. A text counts as the number that it
/// begins with ("7 seconds" and "7,9" are 7), "true" and "yes" as 1, any other as 0. Integers
/// truncate towards zero; all 64-bit integers, signed or not, are preserved.
Preferences preferencesIn(const IniFile& file);

/// Makes the change in the file. Other keys do not change.
void enter(const Preferences& change, IniFile& file);

/// Merges a later change into a change; the later values win.
void append(Preferences& change, const Preferences& later);

} // namespace vexa
