#include "controls/SheetPrinting.h"

#include "controls/in_background.h"
#include "controls/message_boxes.h"
#include "controls/plain_text.h"
#include "controls/row_file_dialogs.h"

#include <QLocale>
#include <QPageSize>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>

#include <atomic>
#include <memory>

namespace vexa {

void SheetPrinting::print(const ReelSheet& sheet) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(sheet.listName);
    QPrintDialog dialog(printer.get(), &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    make(sheet, tr("Printing…"), [printer](const ReelSheet& pages, const PageProgress& progress) {
        return printSheet(pages, *printer, progress);
    });
}

void SheetPrinting::exportPdf(const ReelSheet& sheet) {
    const auto path = askForFile(m_window, fileDialogs::pdf, sheet.listName);
    if (path.isNull())
        return;
    // Not the default printer's: asking for that can block as long as the network does.
    const bool isLetter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    const QPageSize paper(isLetter ? QPageSize::Letter : QPageSize::A4);
    make(sheet, tr("Writing PDF…"), [=](const ReelSheet& pages, const PageProgress& progress) {
        return writeSheetPdf(pages, path, paper, progress);
    });
}

void SheetPrinting::make(const ReelSheet& sheet, const QString& what, const Output& output) {
    auto* shown = new QProgressDialog(what, tr("Cancel"), 0, 0, &m_window);
    shown->setAttribute(Qt::WA_DeleteOnClose);
    shown->setAutoClose(false);
    shown->setMinimumDuration(500);
    setPlainWindowTitle(*shown, tr("Reel Sheet"));
    const auto isCancelled = std::make_shared<std::atomic<bool>>(false);
    connect(shown, &QProgressDialog::canceled, this, [isCancelled] { *isCancelled = true; });
    const auto progress = [guard = QPointer(shown), isCancelled](std::size_t page,
                                                                 std::size_t pages) {
        const auto tell = [guard, page, pages] {
            if (!guard)
                return;
            guard->setMaximum(static_cast<int>(pages));
            guard->setValue(static_cast<int>(page));
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), tell, Qt::QueuedConnection);
        return !*isCancelled;
    };
    const auto work = [sheet, output, progress] { return output(sheet, progress); };
    inBackground(*this, work, [this, guard = QPointer(shown), isCancelled](bool isMade) {
        if (guard)
            guard->deleteLater();
        if (!isMade && !*isCancelled)
            showMessage(m_window, tr("The reel sheet could not be made."));
    });
}

} // namespace vexa
