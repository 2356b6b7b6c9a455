#include "reel_sheet/print_sheet.h"

#include "files/atomic_file.h"
#include "reel_sheet/SheetPages.h"

#include <QBuffer>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace vexa {

bool printSheet(const ReelSheet& sheet, QPagedPaintDevice& device, const PageProgress& progress) {
    const SheetPages pages(sheet, device.pageLayout().paintRect(QPageLayout::Point).size());
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    constexpr qreal pointsPerInch = 72;
    painter.scale(device.logicalDpiX() / pointsPerInch, device.logicalDpiY() / pointsPerInch);
    for (std::size_t page = 0; page < pages.count(); ++page) {
        if (!progress(page, pages.count()) || (page > 0 && !device.newPage()))
            return false;
        pages.paint(painter, page);
    }
    return painter.end();
}

bool writeSheetPdf(const ReelSheet& sheet, const QString& path, const QPageSize& paper,
                   const PageProgress& progress) {
    constexpr qreal margin = 15; // mm
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(sheet.listName);
        writer.setPageLayout(QPageLayout(paper, QPageLayout::Portrait,
                                         QMarginsF(margin, margin, margin, margin),
                                         QPageLayout::Millimeter));
        if (!printSheet(sheet, writer, progress))
            return false;
    }
    return replaceFile(path, buffer.data());
}

} // namespace vexa
