#pragma once

#include <QStringList>

#include <cstdint>
#include <map>
#include <optional>

namespace vexa {

class IniFile;

/// The settings that outlive a run; or a change of some of them. What is absent was never set, or
/// does not change.
struct Preferences {
    std::optional<double> delayInSeconds{};          ///< between the items of a batch run
    std::optional<std::uint64_t> defaultFrameRate{}; ///< frame-rate code
    std::optional<std::uint64_t> defaultSyncType{};  ///< sync-type code
    std::optional<bool> pauseForReelChange{};
    std::optional<std::int32_t> midiDestination{}; ///< unique ID
    std::optional<std::int64_t> windowWidth{};     ///< pixels
    std::optional<std::int64_t> windowHeight{};    ///< pixels
    std::optional<QStringList> recentFiles{};      ///< paths, newest first
    /// By the identifier of a column of the batch table, in pixels.
    std::map<QString, std::int64_t> columnWidths{};

    bool operator==(const Preferences&) const = default;
};

/// What the file holds, whatever the kind of its values. A number is the one that its text begins
/// with ("7 seconds" and "7,9" are 7); "true" and "yes" are 1, all else is 0. Integers are cut off
/// towards zero; those of 64 bits, signed or not, pass unharmed.
Preferences preferencesIn(const IniFile& file);

/// Makes the change in the file, and touches no other key.
void enter(const Preferences& change, IniFile& file);

/// Makes one change of two; the later one prevails.
void append(Preferences& change, const Preferences& later);

} // namespace vexa
