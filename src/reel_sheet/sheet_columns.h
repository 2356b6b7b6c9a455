#pragma once

#include <QRectF>

#include <array>
#include <cstddef>

namespace vexa {

/// The columns of a reel sheet, from the left. The title takes the remaining width.
enum class SheetColumn : std::size_t { box, title, start, stop, length, rate, sync, striped };

struct SheetColumns {
    struct Column {
        const char* title;
        qreal width; ///< in points; 0: the remaining width
    };
    static constexpr std::array<Column, 8> all{Column{"Done", 30}, {"Title", 0},   {"Start", 62},
                                               {"Stop", 62},       {"Length", 46}, {"Rate", 38},
                                               {"Sync", 30},       {"Striped", 82}};

    qreal pageWidth;

    /// The rectangle of a cell with this height.
    QRectF cell(SheetColumn column, qreal top, qreal height) const {
        qreal fixed = 0;
        for (const auto& each : all)
            fixed += each.width;
        qreal left = 0;
        for (std::size_t i = 0;; ++i) {
            const qreal width = all[i].width > 0 ? all[i].width : pageWidth - fixed;
            if (i == static_cast<std::size_t>(column))
                return {left, top, width, height};
            left += width;
        }
    }
};

} // namespace vexa
