#pragma once

#include "timecode/StripeSettings.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vexa {

/// The result of reading a text's rows.
struct ReadRows {
    /// The data for an item of the list.
    struct Row {
        std::size_t line = 0; ///< in the text, from 1
        std::uint64_t reel = 0;
        QString title;
        StripeSettings settings;
    };
    /// A line that should be a row but cannot be.
    struct Refusal {
        std::size_t line = 0;
        QString text;   ///< the line, or the start of a long one
        QString reason; ///< "no frame 27 at 25 fps"
    };

    std::vector<Row> rows;
    std::vector<Refusal> refused;
    bool assumedRate = false; ///< rows without a rate got the given one
    bool assumedType = false;
    QString fault; ///< why the text cannot be read at all; null if it can
};

/// Which times of an edit decision list to use.
enum class EditTimes {
    source, ///< times on the source reel
    record, ///< times in the programme
};

/// Information that the text may lack.
struct ReadingOptions {
    /// Used where the text states none.
    std::uint64_t rate = 0;
    std::uint64_t type = 0;
    EditTimes editTimes = EditTimes::source;
};

/// A longer list could be saved but not opened again.
inline constexpr std::size_t mostRows = 500'000;

} // namespace vexa
