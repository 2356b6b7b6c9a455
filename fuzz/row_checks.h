#pragma once

#include "batch/VexaBatchStripeData.h"
#include "interchange/read_rows.h"
#include "timecode/timecode.h"

#include <cstdlib>

namespace vexa {

inline void expect(bool holds) {
    if (!holds)
        std::abort();
}

/// Rows must fit the list and be valid at their rate; refusals must give a reason.
inline void checkRows(const ReadRows& read) {
    expect(read.fault.isNull() || read.rows.empty());
    for (const auto& row : read.rows) {
        const auto& rate = frameRateForCode(row.settings.frameRate);
        for (const auto time : {row.settings.startTime, row.settings.stopTime})
            expect(isValid(unpack(static_cast<PackedTimecode>(time)), rate));
        expect(row.line > 0);
    }
    for (const auto& refusal : read.refused)
        expect(!refusal.reason.isEmpty() && refusal.line > 0);
}

} // namespace vexa
