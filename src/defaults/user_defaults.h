#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <variant>

namespace vexa {

/// The settings that outlive a run, under the keys below, in an INI file below $XDG_CONFIG_HOME
/// that only its owner may read. Every write is on disk when the call returns; a file that cannot
/// be read counts as empty, and one that cannot be written keeps what it held; so does what is no
/// regular file. Of one that is no INI file, what can be read is kept, and the whole is copied to a
/// file of its name and "~"; one of more than a mebibyte counts as empty and is moved there by the
/// next write. Programs may write at once; one that holds the file for longer than half a second is
/// not waited for, and nothing is written. Main thread only.
namespace defaults {

inline constexpr auto delayKey = "vexadelay";           ///< seconds, real
inline constexpr auto frameRateKey = "vexadefaultrate"; ///< frame-rate code
inline constexpr auto syncTypeKey = "vexadefaulttype";  ///< sync-type code
inline constexpr auto pauseForReelKey = "vexapauseforreel";
inline constexpr auto midiDestinationKey = "vexamididest"; ///< unique ID, signed 32 bits
/// Followed by the identifier of a column of the batch table: its width in pixels, integer.
inline constexpr auto columnWidthKeys = "columnwidth/";
inline constexpr auto windowWidthKey = "windowwidth";   ///< pixels, integer
inline constexpr auto windowHeightKey = "windowheight"; ///< pixels, integer
inline constexpr auto recentFilesKey = "recentfiles";   ///< paths, newest first

/// The value under a key as a number, or nothing when the key is absent. A present value that is
/// no number counts as its leading number ("7 seconds" and "7,9" are 7), "true" and "yes" as 1, all
/// else as 0.
std::optional<double> number(const char* key);

/// The same, truncated towards zero. Whole numbers of 64 bits, signed or not, pass unharmed.
std::optional<std::int64_t> integer(const char* key);

/// The value under a key as a list of texts; empty when the key is absent.
QStringList texts(const char* key);

struct Entry {
    const char* key;
    std::variant<double, qlonglong, bool, QStringList> value;
};

/// Writes all of them at once. Booleans are kept as "true" and "false".
void write(std::initializer_list<Entry> entries);

void setInteger(const char* key, std::int64_t value);
void setTexts(const char* key, const QStringList& value);

} // namespace defaults
} // namespace vexa
