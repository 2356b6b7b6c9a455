#include "engine/run_rows.h"

#include <algorithm>
#include <span>

namespace vexa {

namespace {

QString titleOf(const BatchItemRef& item) {
    return item->title.isEmpty() ? QStringLiteral("an item without a title") : item->title;
}

/// For example "Part one", or "3 rows".
QString named(const BatchItems& items) {
    return items.size() == 1 ? titleOf(items.front()) : QStringLiteral("%1 rows").arg(items.size());
}

} // namespace

QString runRowsText(const RunRows& rows) {
    if (rows.takesSelection != rows.beganWithSelection)
        return rows.takesSelection ? QStringLiteral("the run now takes the selected rows")
                                   : QStringLiteral("the run now takes all rows");
    if (!rows.repeated.empty())
        return QStringLiteral("the run will take %1 again").arg(named(rows.repeated));
    if (!rows.skipped.empty())
        return QStringLiteral("the run will not take %1").arg(named(rows.skipped));
    if (rows.removedUnderWay)
        return QStringLiteral("%1 was removed and plays to its end")
            .arg(titleOf(rows.removedUnderWay));
    if (!rows.removed.empty())
        return QStringLiteral("the run will take %1 all the same").arg(named(rows.removed));
    return {};
}

RunRows runRows(const RunCourse& course) {
    RunRows rows;
    const std::set<BatchItemRef> listed(course.list.begin(), course.list.end());
    const auto first = std::min(course.next, course.items.size());
    const auto toCome = std::span(course.items).subspan(first);
    for (const auto& item : toCome) {
        if (item == course.underWay || course.finished.contains(item))
            rows.repeated.push_back(item);
        if (!listed.contains(item))
            rows.removed.push_back(item);
    }
    for (const auto& item : std::span(course.items).first(first))
        if (item != course.underWay && !course.finished.contains(item))
            rows.skipped.push_back(item);
    if (course.underWay && !listed.contains(course.underWay))
        rows.removedUnderWay = course.underWay;
    return rows;
}

} // namespace vexa
