#pragma once

#include "reel_sheet/ReelSheet.h"
#include "reel_sheet/print_sheet.h"

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

namespace vexa {

/// Puts a reel sheet on paper or into a PDF file, on another thread. What takes longer than a
/// moment shows how far it has come, and can be cancelled.
class SheetPrinting : public QObject {
    Q_OBJECT

public:
    explicit SheetPrinting(QWidget& window) : m_window(window) {}

    /// Both ask where to, over the window, and return before the pages are made.
    void print(const ReelSheet& sheet);
    void exportPdf(const ReelSheet& sheet);

private:
    /// What takes the pages; false when it could not.
    using Output = std::function<bool(const ReelSheet& sheet, const PageProgress& progress)>;

    void make(const ReelSheet& sheet, const QString& what, const Output& output);

    QWidget& m_window;
};

} // namespace vexa
