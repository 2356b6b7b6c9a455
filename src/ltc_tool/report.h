#pragma once

#include "tape/tape_check.h"

#include <string>
#include <vector>

namespace vexa::ltc_tool {

/// The results of a check.
struct Findings {
    std::vector<TapeContents> tapes;
    std::vector<TapeRow> rows;        ///< of the list; empty without one
    TapeVerdict verdict;              ///< on these
    std::vector<TapeFault> faults;    ///< of the timecode itself, without a list
    std::vector<std::string> skipped; ///< rows that cannot be checked, and why
};

/// Whether there is timecode without faults.
bool isGood(const Findings& findings);

/// "whole", "FAULTS" or "MISSING".
std::string verdictWord(const RowVerdict& row);

/// For reading: tables, and a summary line at the end.
std::string reportText(const Findings& findings);

/// For keeping: comma-separated values, one record per line, with the field names in the first
/// line. The first field of a record is its kind: "stretch", "row", "fault", "note" (not a
/// fault) or "unlisted".
std::string reportCsv(const Findings& findings);

} // namespace vexa::ltc_tool
