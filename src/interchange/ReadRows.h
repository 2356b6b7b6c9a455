#pragma once

#include "timecode/StripeSettings.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vexa {

/// What a text becomes when its rows are read.
struct ReadRows {
    /// What an item of the list is made of.
    struct Row {
        std::size_t line = 0; ///< of the text, from 1
        std::uint64_t reel = 0;
        QString title;
        StripeSettings settings;
    };
    /// A line that should be a row and cannot be one.
    struct Refusal {
        std::size_t line = 0;
        QString text;   ///< the line, or the beginning of a long one
        QString reason; ///< "no frame 27 at 25 fps"
    };

    std::vector<Row> rows;
    std::vector<Refusal> refused;
    bool assumedRate = false; ///< rows whose rate the text does not tell took the given one
    bool assumedType = false;
    QString fault; ///< why the text cannot be read at all; null when it can
};

/// Which times of an edit decision list become rows.
enum class EditTimes {
    source, ///< those of the reel that the edit was taken from
    record, ///< those of the programme
};

/// What the one who has the text knows of it.
struct ReadingOptions {
    /// Taken where the text does not tell them.
    std::uint64_t rate = 0;
    std::uint64_t type = 0;
    EditTimes editTimes = EditTimes::source;
};

/// A list that is longer could not be opened again once it is saved.
inline constexpr std::size_t mostRows = 500'000;

} // namespace vexa
