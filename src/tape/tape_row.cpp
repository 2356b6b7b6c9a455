#include "tape/tape_row.h"

#include "timecode/frame_number.h"
#include "timecode/sync_type.h"

namespace vexa {

namespace {

TapeRow tapeRow(const BatchItem& item, std::size_t number) {
    return {number,
            item.reel,
            item.title.toStdString(),
            unpack(static_cast<PackedTimecode>(item.start)),
            unpack(static_cast<PackedTimecode>(item.stop)),
            &frameRateForCode(item.rate),
            item.type != sync::fsk};
}

} // namespace

std::vector<TapeRow> tapeRows(const BatchItems& items, const std::set<std::size_t>& numbers) {
    std::vector<TapeRow> rows;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (numbers.empty() || numbers.contains(i))
            rows.push_back(tapeRow(*items[i], i + 1));
    return rows;
}

std::string obstacle(const TapeRow& row) {
    if (!row.hasSignal)
        return std::string(syncTypeName(sync::fsk)) + " has no form in software";
    for (const auto& [name, time] : {std::pair{"start", row.start}, std::pair{"stop", row.stop}})
        if (const auto fault = refusal(time, *row.rate); !fault.empty())
            return std::string(name) + " time " + timecodeText(time) + ": " + fault;
    if (pack(row.stop) <= pack(row.start))
        return "the stop time " + timecodeText(row.stop) + " is not after the start time " +
               timecodeText(row.start);
    return {};
}

std::uint64_t frameCount(const TapeRow& row) {
    return frameNumber(row.stop, *row.rate) - frameNumber(row.start, *row.rate);
}

Timecode lastFrame(const TapeRow& row) {
    return timeOfFrame(frameNumber(row.stop, *row.rate) - 1, *row.rate);
}

} // namespace vexa
