#pragma once

#include "tape/tape_check.h"

#include <span>
#include <string>
#include <vector>

namespace vexa::ltc_tool {

/// What a check has found.
struct Findings {
    std::vector<TapeContents> tapes;
    std::vector<TapeRow> rows;        ///< of the list; none without one
    TapeVerdict verdict;              ///< on these
    std::vector<TapeFault> faults;    ///< of the timecode by itself, where there is no list
    std::vector<std::string> skipped; ///< rows that nothing can be said of, and why
};

/// Whether there is timecode, and nothing to complain of.
bool isGood(const Findings& findings);

/// "whole", "FAULTS" or "MISSING".
std::string verdictWord(const RowVerdict& row);

/// To read: tables, and a line at the end that sums up.
std::string reportText(const Findings& findings);

/// To keep: comma-separated values, one record a line, the names of the fields in the first. What
/// a record tells is its first field: "stretch", "fault", "row" or "unlisted".
std::string reportCsv(const Findings& findings);

} // namespace vexa::ltc_tool
