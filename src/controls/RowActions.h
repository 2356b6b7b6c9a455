#pragma once

#include "controls/RowsMimeData.h"
#include "controls/SheetPrinting.h"
#include "controls/StripedTimes.h"
#include "interchange/read_rows.h"

#include <QObject>

#include <cstdint>

class QWidget;

namespace vexa {

class CheckPanel;
class VexaBatchTableView;
class Vexa_RemoteAppDelegate;

/// The menu commands for rows and files of rows. If a text field or a time display has the focus,
/// Copy and Paste act on its text.
class RowActions : public QObject {
    Q_OBJECT

public:
    /// controller and window must outlive it.
    RowActions(Vexa_RemoteAppDelegate& controller, QWidget& window);

    /// tag: one of row_menu.
    void perform(std::uint64_t tag);

private:
    void cut();
    void copy();
    void paste();
    void selectAll();
    void importRows();
    void exportRows();
    void showCheck();
    ReelSheet sheet() const;
    ReadingOptions readingOptions() const;
    /// Adds the rows of a text. Asks if some of it cannot be read.
    void take(const OfferedText& offered, const QString& actionName);
    void ask(const QString& title, const QString& actionName,
             const std::function<FileText()>& source);
    void add(const ReadRows& rows, const QString& actionName);
    VexaBatchTableView* table() const;

    Vexa_RemoteAppDelegate& m_controller;
    QWidget& m_window;
    StripedTimes m_striped;
    SheetPrinting m_printing;
    CheckPanel* m_check = nullptr; ///< built when first shown
};

} // namespace vexa
