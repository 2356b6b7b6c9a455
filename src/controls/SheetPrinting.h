#pragma once

#include "reel_sheet/ReelSheet.h"
#include "reel_sheet/print_sheet.h"

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

namespace vexa {

/// Prints a reel sheet or writes it to a PDF file, on another thread. A job longer than a moment
/// shows its progress and can be cancelled.
class SheetPrinting : public QObject {
    Q_OBJECT

public:
    explicit SheetPrinting(QWidget& window) : m_window(window) {}

    /// Both ask for the destination, over the window, and return before the pages are made.
    void print(const ReelSheet& sheet);
    void exportPdf(const ReelSheet& sheet);

private:
    /// Outputs the pages; false on failure.
    using Output = std::function<bool(const ReelSheet& sheet, const PageProgress& progress)>;

    void make(const ReelSheet& sheet, const QString& what, const Output& output);

    QWidget& m_window;
};

} // namespace vexa
