#pragma once

#include "reel_sheet/ReelSheet.h"
#include "stripe/ClockTime.h"

#include <QSizeF>

#include <cstddef>
#include <span>
#include <vector>

class QPainter;

namespace vexa {

/// Divides a reel sheet into pages: at least one per reel, and one for an empty list. Lengths are
/// in points. Works on any thread, if fonts are available.
class SheetPages {
public:
    /// The sheet must outlive this. pageSize: the printable area.
    SheetPages(const ReelSheet& sheet, QSizeF pageSize);

    std::size_t count() const { return m_pages.size(); }
    /// page: from 0. The painter's origin must be the page's corner, and its unit a point.
    void paint(QPainter& painter, std::size_t page) const;

private:
    using Rows = std::span<const ReelSheet::Row>;

    struct Page {
        Rows reel; ///< all rows of the reel
        Rows rows; ///< the rows on the page
        ClockTime reelTime{};
    };

    void addReel(Rows reel);
    qreal height(const ReelSheet::Row& row) const;
    void paintHead(QPainter& painter, const Page& page) const;
    void paintColumnTitles(QPainter& painter) const;
    void paintRow(QPainter& painter, const ReelSheet::Row& row, qreal top) const;
    void paintFoot(QPainter& painter, std::size_t page) const;

    const ReelSheet& m_sheet;
    QSizeF m_size;
    std::vector<Page> m_pages;
};

} // namespace vexa
