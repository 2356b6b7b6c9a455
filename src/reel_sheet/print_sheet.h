#pragma once

#include <QByteArray>
#include <QPageSize>
#include <QString>

#include <cstddef>
#include <functional>

class QPagedPaintDevice;

namespace vexa {

struct ReelSheet;

/// Told before each page; false ends the printing.
using PageProgress = std::function<bool(std::size_t page, std::size_t pages)>;

/// Prints on paper of the device's size. False when it was ended, or the device failed. Any thread
/// on which nobody else uses the device.
bool printSheet(const ReelSheet& sheet, QPagedPaintDevice& device, const PageProgress& progress);

/// Writes a PDF file. False when it was ended, or the file could not be written; then it is as it
/// was.
bool writeSheetPdf(const ReelSheet& sheet, const QString& path, const QPageSize& paper,
                   const PageProgress& progress);

} // namespace vexa
