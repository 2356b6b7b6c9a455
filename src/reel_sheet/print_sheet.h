#pragma once

#include <QPageSize>
#include <QString>

#include <cstddef>
#include <functional>

class QPagedPaintDevice;

namespace vexa {

struct ReelSheet;

/// Called before each page; returning false stops the printing.
using PageProgress = std::function<bool(std::size_t page, std::size_t pages)>;

/// Prints on paper of the device's size. Returns false if stopped, or if the device failed. Works
/// on any thread, as long as no other thread uses the device.
bool printSheet(const ReelSheet& sheet, QPagedPaintDevice& device, const PageProgress& progress);

/// Writes a PDF file. Returns false if stopped, or if writing failed; the file then stays
/// unchanged.
bool writeSheetPdf(const ReelSheet& sheet, const QString& path, const QPageSize& paper,
                   const PageProgress& progress);

} // namespace vexa
