#include "check/list_check.h"

#include "stripe/ItemTimes.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

namespace vexa {

namespace {

using Fault = Finding::Fault;

PackedTimecode startOf(const BatchItem& item) { return static_cast<PackedTimecode>(item.start); }
PackedTimecode stopOf(const BatchItem& item) { return static_cast<PackedTimecode>(item.stop); }

/// Rows sorted by reel and time, so that doubles are adjacent.
struct Place {
    std::size_t row;
    const BatchItem* item;

    auto time() const { return std::tuple(item->reel, startOf(*item), stopOf(*item)); }
    auto rest() const { return std::tie(item->title, item->rate, item->type); }
    bool isDoubleOf(const Place& other) const {
        return time() == other.time() && rest() == other.rest();
    }
};

bool comesBefore(const Place& a, const Place& b) {
    if (a.time() != b.time())
        return a.time() < b.time();
    if (a.rest() != b.rest())
        return a.rest() < b.rest();
    return a.row < b.row;
}

ClockTime timeOfTape(std::uint64_t minutes) {
    constexpr auto longest = std::chrono::duration_cast<std::chrono::minutes>(ClockTime::max());
    const auto count = static_cast<std::uint64_t>(longest.count());
    return minutes == 0 || minutes > count
               ? ClockTime::max()
               : ClockTime(std::chrono::minutes(static_cast<std::int64_t>(minutes)));
}

class ListCheck {
public:
    ListCheck(const BatchItems& items, std::uint64_t tapeMinutes)
        : m_items(items), m_tape(timeOfTape(tapeMinutes)) {}

    std::vector<Finding> findings() {
        for (std::size_t row = 0; row < m_items.size(); ++row) {
            checkTimes(row);
            checkReel(row);
        }
        checkPairs();
        std::ranges::stable_sort(m_findings, {}, [](const Finding& finding) {
            return std::pair(finding.row, finding.fault);
        });
        return std::move(m_findings);
    }

private:
    struct Reel {
        BatchItemRef first;
        ClockTime time{};
    };

    void add(Fault fault, std::size_t row, const BatchItemRef& other = nullptr) {
        m_findings.push_back({fault, row, m_items[row], other});
    }

    void checkTimes(std::size_t row) {
        const auto& item = *m_items[row];
        const auto& rate = frameRateForCode(item.rate);
        if (!isValid(unpack(startOf(item)), rate))
            add(Fault::noSuchStart, row);
        if (!isValid(unpack(stopOf(item)), rate))
            add(Fault::noSuchStop, row);
        if (stopOf(item) <= startOf(item))
            add(Fault::stopNotAfterStart, row);
    }

    void checkReel(std::size_t row) {
        const auto& item = m_items[row];
        auto& reel = m_reels[item->reel];
        if (!reel.first)
            reel.first = item;
        if (frameRateForCode(item->rate).code != frameRateForCode(reel.first->rate).code)
            add(Fault::rateChanges, row, reel.first);
        const bool wasTooLong = reel.time > m_tape;
        reel.time += timeOrZero(*item);
        if (!wasTooLong && reel.time > m_tape)
            add(Fault::reelTooLong, row);
    }

    void checkPairs() {
        std::vector<Place> places;
        places.reserve(m_items.size());
        for (std::size_t row = 0; row < m_items.size(); ++row)
            places.push_back({row, m_items[row].get()});
        if (!std::ranges::is_sorted(places, comesBefore))
            std::ranges::sort(places, comesBefore);
        const Place* endsLast = nullptr;
        for (const auto* place = places.data(); place != places.data() + places.size(); ++place)
            if (place != places.data() && place->isDoubleOf(place[-1]))
                add(Fault::doubled, place->row, m_items[place[-1].row]);
            else if (stopOf(*place->item) > startOf(*place->item))
                checkOverlap(*place, endsLast);
    }

    /// Rows come in order of their start, so any row that this one overlaps has started before. If
    /// it overlaps any, it overlaps the one that ends last.
    void checkOverlap(const Place& place, const Place*& endsLast) {
        const bool isSameReel = endsLast && endsLast->item->reel == place.item->reel;
        if (isSameReel && startOf(*place.item) < stopOf(*endsLast->item))
            add(Fault::overlaps, place.row, m_items[endsLast->row]);
        if (!isSameReel || stopOf(*place.item) > stopOf(*endsLast->item))
            endsLast = &place;
    }

    const BatchItems& m_items;
    ClockTime m_tape;
    std::unordered_map<std::uint64_t, Reel> m_reels;
    std::vector<Finding> m_findings;
};

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

QString timeText(PackedTimecode time) { return text(timecodeText(time)); }

QString refusalText(PackedTimecode time, std::uint64_t rate) {
    return timeText(time) + QStringLiteral(": ") +
           text(refusal(unpack(time), frameRateForCode(rate)));
}

QString rateName(const BatchItem& item) {
    const auto name = frameRateForCode(item.rate).name;
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace

std::vector<Finding> checkList(const BatchItems& items, std::uint64_t tapeMinutes) {
    return ListCheck(items, tapeMinutes).findings();
}

QString findingText(const Finding& finding) {
    const auto& item = *finding.item;
    switch (finding.fault) {
    case Fault::stopNotAfterStart:
        return QStringLiteral("does not stop after its start");
    case Fault::noSuchStart:
        return QStringLiteral("start time %1").arg(refusalText(startOf(item), item.rate));
    case Fault::noSuchStop:
        return QStringLiteral("stop time %1").arg(refusalText(stopOf(item), item.rate));
    case Fault::doubled:
        return QStringLiteral("is in the list twice");
    case Fault::overlaps:
        return QStringLiteral("overlaps “%1”, which ends at %2")
            .arg(finding.other->title, timeText(stopOf(*finding.other)));
    case Fault::rateChanges:
        return QStringLiteral("is at %1, but reel %2 begins at %3")
            .arg(rateName(item))
            .arg(item.reel)
            .arg(rateName(*finding.other));
    case Fault::reelTooLong:
        return QStringLiteral("runs past the end of reel %1's tape").arg(item.reel);
    }
    return {};
}

std::vector<ReelTotal> reelTotals(const BatchItems& items) {
    std::map<std::uint64_t, ReelTotal> totals;
    for (const auto& item : items) {
        auto& total = totals[item->reel];
        total.reel = item->reel;
        ++total.rows;
        total.time += timeOrZero(*item);
    }
    std::vector<ReelTotal> inOrder;
    inOrder.reserve(totals.size());
    for (const auto& [reel, total] : totals)
        inOrder.push_back(total);
    return inOrder;
}

} // namespace vexa
