#pragma once

#include "interchange/ReadRows.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <string>
#include <vector>

namespace vexa::test {

/// "2: 7 Part one 01:00:00:00-01:10:00:00 25 fps MTC": line, reel and so on.
inline std::string rowText(const ReadRows::Row& row) {
    return std::to_string(row.line) + ": " + std::to_string(row.reel) + ' ' +
           row.title.toStdString() + ' ' + timecodeText(row.settings.startTime) + '-' +
           timecodeText(row.settings.stopTime) + ' ' +
           std::string(frameRateForCode(row.settings.frameRate).name) + ' ' +
           std::string(syncTypeName(row.settings.syncType));
}

inline std::vector<std::string> rowTexts(const ReadRows& read) {
    std::vector<std::string> texts;
    for (const auto& row : read.rows)
        texts.push_back(rowText(row));
    return texts;
}

/// "2: the line: why not".
inline std::vector<std::string> refusalTexts(const ReadRows& read) {
    std::vector<std::string> texts;
    for (const auto& [line, text, reason] : read.refused)
        texts.push_back(std::to_string(line) + ": " + text.toStdString() + ": " +
                        reason.toStdString());
    return texts;
}

} // namespace vexa::test
