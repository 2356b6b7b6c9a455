#include "reel_sheet/SheetPages.h"

#include "reel_sheet/sheet_columns.h"
#include "reel_sheet/sheet_text.h"
#include "stripe/ItemTimes.h"
#include "text/duration_text.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <QPainter>

#include <algorithm>

namespace vexa {

namespace {

constexpr qreal headHeight = 64;
constexpr qreal columnTitlesHeight = 18;
constexpr qreal footHeight = 20;
constexpr qreal rowPadding = 4; ///< above and below the text
constexpr qreal cellGap = 6;    ///< between the text of a cell and the next column
constexpr qreal boxSize = 9;

const QColor ruleColor(0xb0, 0xb0, 0xb0);
const QColor groundColor(0xe8, 0xe8, 0xe8);

QString timeText(std::uint64_t packed) { return QString::fromLatin1(timecodeText(packed)); }

QString lengthText(ClockTime time) { return QString::fromLatin1(durationText(time)); }

/// A tick box, centred at this height.
void paintBox(QPainter& painter, qreal left, qreal middle) {
    painter.drawRect(QRectF(left, middle - boxSize / 2, boxSize, boxSize));
}

void paintCell(QPainter& painter, const QRectF& cell, const QString& text) {
    painter.drawText(cell.adjusted(0, rowPadding, 0, 0), Qt::AlignLeft | Qt::TextDontClip, text);
}

} // namespace

SheetPages::SheetPages(const ReelSheet& sheet, QSizeF pageSize) : m_sheet(sheet), m_size(pageSize) {
    const Rows all = sheet.rows;
    for (std::size_t first = 0; first < all.size();) {
        auto last = first;
        while (last < all.size() && all[last].item.reel == all[first].item.reel)
            ++last;
        addReel(all.subspan(first, last - first));
        first = last;
    }
    if (m_pages.empty())
        m_pages.push_back({});
}

void SheetPages::addReel(Rows reel) {
    const qreal room = m_size.height() - headHeight - columnTitlesHeight - footHeight;
    ClockTime time{};
    for (const auto& row : reel)
        time += timeOrZero(row.item);
    std::size_t first = 0;
    qreal used = 0;
    for (std::size_t i = 0; i < reel.size(); ++i) {
        const qreal needed = height(reel[i]);
        if (i > first && used + needed > room) {
            m_pages.push_back({reel, reel.subspan(first, i - first), time});
            first = i;
            used = 0;
        }
        used += needed;
    }
    m_pages.push_back({reel, reel.subspan(first), time});
}

qreal SheetPages::height(const ReelSheet::Row& row) const {
    const auto cell = SheetColumns{m_size.width()}.cell(SheetColumn::title, 0, 0);
    return sheetTextHeight(row.item.title, cell.width() - cellGap) + 2 * rowPadding;
}

void SheetPages::paint(QPainter& painter, std::size_t page) const {
    const auto& contents = m_pages[page];
    paintHead(painter, contents);
    paintColumnTitles(painter);
    qreal top = headHeight + columnTitlesHeight;
    for (const auto& row : contents.rows) {
        paintRow(painter, row, top);
        top += height(row);
    }
    paintFoot(painter, page);
}

void SheetPages::paintHead(QPainter& painter, const Page& page) const {
    constexpr qreal lineHeight = 16;
    const QRectF first(0, 0, m_size.width(), 28);
    const QRectF second(0, first.bottom(), m_size.width(), lineHeight);
    painter.setPen(Qt::black);
    painter.setFont(sheetFont(20, QFont::Bold));
    const bool isEmpty = page.reel.empty();
    const bool isFirstPage = page.rows.data() == page.reel.data();
    const auto title = isEmpty ? QStringLiteral("No reels")
                               : QStringLiteral("Reel %1").arg(page.reel.front().item.reel) +
                                     (isFirstPage ? QString() : QStringLiteral(" (continued)"));
    painter.drawText(first, Qt::AlignLeft | Qt::AlignVCenter, title);
    painter.setFont(sheetFont(9));
    painter.drawText(first.adjusted(m_size.width() / 2, 0, 0, 0), Qt::AlignRight | Qt::AlignVCenter,
                     elidedSheetText(m_sheet.listName, m_size.width() / 2));
    if (isEmpty)
        return;
    painter.drawText(second, Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Items: %1   In all: %2")
                         .arg(page.reel.size())
                         .arg(lengthText(page.reelTime)));
    qreal left = m_size.width() - 190;
    for (const auto& label : {QStringLiteral("Tape loaded"), QStringLiteral("Checked")}) {
        paintBox(painter, left, second.center().y());
        painter.drawText(second.adjusted(left + boxSize + cellGap, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, label);
        left += 110;
    }
}

void SheetPages::paintColumnTitles(QPainter& painter) const {
    const SheetColumns columns{m_size.width()};
    painter.fillRect(QRectF(0, headHeight, m_size.width(), columnTitlesHeight), groundColor);
    painter.setFont(sheetFont(sheetTextSize, QFont::Bold));
    for (std::size_t i = 0; i < SheetColumns::all.size(); ++i)
        paintCell(painter,
                  columns.cell(static_cast<SheetColumn>(i), headHeight, columnTitlesHeight),
                  QLatin1String(SheetColumns::all[i].title));
}

void SheetPages::paintRow(QPainter& painter, const ReelSheet::Row& row, qreal top) const {
    const SheetColumns columns{m_size.width()};
    const qreal rowHeight = height(row);
    const auto cell = [&](SheetColumn column) { return columns.cell(column, top, rowHeight); };
    const auto& item = row.item;
    painter.setFont(sheetFont(sheetTextSize));
    paintBox(painter, cell(SheetColumn::box).left() + rowPadding,
             top + rowPadding + sheetLineHeight() / 2);
    const auto title = cell(SheetColumn::title).adjusted(0, rowPadding, -cellGap, 0);
    paintSheetText(painter, title.topLeft(), item.title, title.width());
    paintCell(painter, cell(SheetColumn::start), timeText(item.start));
    paintCell(painter, cell(SheetColumn::stop), timeText(item.stop));
    paintCell(painter, cell(SheetColumn::length), lengthText(timeOrZero(item)));
    paintCell(painter, cell(SheetColumn::rate),
              QString::fromLatin1(frameRateForCode(item.rate).name));
    paintCell(painter, cell(SheetColumn::sync), QString::fromLatin1(syncTypeName(item.type)));
    if (row.striped.isValid())
        paintCell(painter, cell(SheetColumn::striped),
                  row.striped.toString(QStringLiteral("yyyy-MM-dd HH:mm")));
    painter.setPen(QPen(ruleColor, 0.5));
    painter.drawLine(QPointF(0, top + rowHeight), QPointF(m_size.width(), top + rowHeight));
    painter.setPen(Qt::black);
}

void SheetPages::paintFoot(QPainter& painter, std::size_t page) const {
    const QRectF foot(0, m_size.height() - footHeight, m_size.width(), footHeight);
    painter.setFont(sheetFont(sheetTextSize));
    painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom,
                     m_sheet.made.toString(QStringLiteral("yyyy-MM-dd HH:mm")));
    painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom,
                     QStringLiteral("Page %1 of %2").arg(page + 1).arg(count()));
}

} // namespace vexa
