#include "reel_sheet/ReelSheet.h"

#include <algorithm>

namespace vexa {

ReelSheet ReelSheet::of(const BatchItems& items, const QString& listName, const QDateTime& made,
                        const std::function<QDateTime(const BatchItemRef&)>& stripedAt) {
    ReelSheet sheet{listName, made, {}};
    sheet.rows.reserve(items.size());
    for (const auto& item : items)
        sheet.rows.push_back({*item, stripedAt(item)});
    std::ranges::stable_sort(sheet.rows, {}, [](const Row& row) { return row.item.reel; });
    return sheet;
}

} // namespace vexa
