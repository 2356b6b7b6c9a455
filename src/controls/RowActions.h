#pragma once

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

/// What the menus do with rows and files of rows. Where a text field or a time display has the
/// keyboard, copying and pasting are about its text.
class RowActions : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
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
    /// Adds what can be taken of a text, asking where some of it cannot.
    void take(const QString& text, const QString& actionName);
    void ask(const QString& title, const QString& actionName,
             const std::function<FileText()>& source);
    void add(const ReadRows& rows, const QString& actionName);
    VexaBatchTableView* table() const;

    Vexa_RemoteAppDelegate& m_controller;
    QWidget& m_window;
    StripedTimes m_striped;
    SheetPrinting m_printing;
    CheckPanel* m_check = nullptr; ///< built when it is first shown
};

} // namespace vexa
