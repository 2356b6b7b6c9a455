#include "controls/RowActions.h"

#include "controls/CheckPanel.h"
#include "controls/ImportPanel.h"
#include "controls/RowsMimeData.h"
#include "controls/VexaBatchTableView.h"
#include "controls/VexaTimecodeButton.h"
#include "controls/in_background.h"
#include "controls/message_boxes.h"
#include "controls/row_file_dialogs.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "engine/menu_validation.h"
#include "files/atomic_file.h"
#include "interchange/delimited_rows.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLineEdit>

namespace vexa {

namespace {

bool isTooLong(const QString& text) { return text.size() > mostBytes / 2; }

/// The widget with the focus if it is of this kind, otherwise null.
template<typename Kind>
Kind* focused() {
    return qobject_cast<Kind*>(QApplication::focusWidget());
}

} // namespace

RowActions::RowActions(Vexa_RemoteAppDelegate& controller, QWidget& window)
    : m_controller(controller), m_window(window), m_striped(controller.run()), m_printing(window) {}

void RowActions::perform(std::uint64_t tag) {
    switch (tag) {
    case row_menu::cut:
        return cut();
    case row_menu::copy:
        return copy();
    case row_menu::paste:
        return paste();
    case row_menu::selectAll:
        return selectAll();
    case row_menu::duplicate:
        return m_controller.duplicateRows();
    case row_menu::remove:
        return m_controller.handleRemoveFromBatchListButton();
    case row_menu::rename:
        return table()->editTitle();
    case row_menu::takeSettings:
        return m_controller.takeSettingsFromRow();
    case row_menu::replaceBySettings:
        return m_controller.replaceRowBySettings();
    case row_menu::addNext:
        return m_controller.addNext();
    case row_menu::check:
        return showCheck();
    case row_menu::importRows:
        return importRows();
    case row_menu::exportRows:
        return exportRows();
    case row_menu::print:
        return m_printing.print(sheet());
    case row_menu::exportPdf:
        return m_printing.exportPdf(sheet());
    default:
        break;
    }
}

VexaBatchTableView* RowActions::table() const {
    return m_window.findChild<VexaBatchTableView*>(QStringLiteral("batchTable"));
}

void RowActions::cut() {
    if (auto* field = focused<QLineEdit>())
        return field->cut();
    const auto items = m_controller.selectedItems();
    if (items.empty())
        return;
    QApplication::clipboard()->setMimeData(new RowsMimeData(items));
    m_controller.changeItems(items, {}, tr("Cut"));
}

void RowActions::copy() {
    if (auto* field = focused<QLineEdit>())
        return field->copy();
    if (auto* display = focused<VexaTimecodeButton>())
        return QApplication::clipboard()->setText(display->shownText());
    if (const auto items = m_controller.selectedItems(); !items.empty())
        QApplication::clipboard()->setMimeData(new RowsMimeData(items));
}

void RowActions::paste() {
    if (auto* field = focused<QLineEdit>())
        return field->paste();
    if (auto* display = focused<VexaTimecodeButton>())
        return display->paste();
    if (const auto* data = QApplication::clipboard()->mimeData())
        take(RowsMimeData::rowsText(*data), tr("Paste"));
}

void RowActions::selectAll() {
    if (auto* field = focused<QLineEdit>())
        field->selectAll();
    else
        table()->selectAll();
}

ReadingOptions RowActions::readingOptions() const {
    return {m_controller.frameRate(), m_controller.syncType(), EditTimes::source};
}

void RowActions::take(const OfferedText& offered, const QString& actionName) {
    constexpr qsizetype readInAMoment = 100'000; // characters
    struct Taken {
        QString text;
        ReadRows rows;
    };
    const auto work = [offered, options = readingOptions()] {
        const auto text = offered.text();
        return Taken{text, isTooLong(text) ? ReadRows() : readRows(text, options)};
    };
    const auto add = [this, actionName](const Taken& taken) {
        if (isTooLong(taken.text))
            showMessage(m_window, tr("What is on the clipboard is too long for a list."));
        else if (taken.rows.fault.isNull() && taken.rows.refused.empty())
            this->add(taken.rows, actionName);
        else
            ask(actionName, actionName, [text = taken.text] { return FileText{text, {}}; });
    };
    if (offered.size <= readInAMoment)
        add(work());
    else
        inBackground(*this, work, add);
}

void RowActions::ask(const QString& title, const QString& actionName,
                     const std::function<FileText()>& source) {
    ImportPanel panel(title, readingOptions(), source, &m_window);
    if (const auto rows = panel.ask())
        add(*rows, actionName);
}

void RowActions::add(const ReadRows& rows, const QString& actionName) {
    if (!rows.rows.empty())
        m_controller.changeItems({}, itemsOfRows(rows, m_controller.batchStripeData()), actionName);
}

void RowActions::importRows() {
    const auto path = askForFile(m_window, fileDialogs::rowsToRead);
    if (!path.isNull())
        ask(tr("Import %1").arg(QFileInfo(path).fileName()), tr("Import"),
            [path] { return readTextFile(path); });
}

void RowActions::exportRows() {
    const auto path = askForFile(m_window, fileDialogs::rowsToWrite, m_controller.fileTitle());
    if (path.isNull())
        return;
    BatchItems items;
    for (const auto& item : m_controller.batchStripeData().batchList())
        items.push_back(std::make_shared<BatchItem>(*item));
    const auto work = [items, path] {
        const QByteArray mark("\xEF\xBB\xBF"); // some spreadsheets recognize UTF-8 by nothing else
        return replaceFile(path, mark + delimitedText(items, u',').toUtf8());
    };
    inBackground(*this, work, [this, path](bool isWritten) {
        if (!isWritten)
            showMessage(m_window, tr("“%1” could not be written.").arg(path));
    });
}

ReelSheet RowActions::sheet() const {
    return ReelSheet::of(m_controller.batchStripeData().batchList(), m_controller.fileTitle(),
                         QDateTime::currentDateTime(),
                         [this](const BatchItemRef& item) { return m_striped.of(item); });
}

void RowActions::showCheck() {
    if (!m_check)
        m_check = new CheckPanel(m_controller, *table(), &m_window);
    m_check->show();
    m_check->raise();
    m_check->activateWindow();
}

} // namespace vexa
