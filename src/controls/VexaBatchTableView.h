#pragma once

#include "controls/BatchRowDelegate.h"
#include "controls/BatchTableModel.h"
#include "engine/outlets.h"

#include <QTableView>

#include <vector>

namespace vexa {

class VexaBatchTableHeader;

/// The batch list as a table in which whole rows are selected. Column widths set by the operator
/// are kept in the settings.
class VexaBatchTableView : public QTableView, public BatchTable {
    Q_OBJECT

public:
    explicit VexaBatchTableView(QWidget* parent = nullptr);

    /// Handles one key, given as the character it types. False if it does not delete rows, or no
    /// rows are selected.
    bool handleKey(const QString& characters);
    bool handleDelete();

    /// Edits the title of the only selected row.
    void editTitle();
    /// Shows or hides the column of durations, and remembers that.
    void setShowsDurations(bool shows);

    /// Searches titles.
    void keyboardSearch(const QString& search) override;
    void commitEditing() override;
    void reloadData() override { m_model.reloadData(); }
    bool hasSelectedRows() const override { return m_hasSelectedRows; }
    RowIndexes selectedRowIndexes() const override;
    std::optional<std::size_t> onlySelectedRow() const override;
    void selectRows(const RowIndexes& rows) override;
    RowIndexes keyboardRow() const override;
    void moveKeyboardTo(const RowIndexes& rows) override;
    void setColumnIdentifiers(const QStringList& identifiers) override;
    void installHeader() override;
    /// Also restores the column widths.
    void setIntercellSpacing(double width, double height) override;
    void scrollToItem(const BatchItemRef& item) override;
    void markItem(const BatchItemRef& item, StripeMark mark) override;
    void clearMarks() override { m_model.clearMarks(); }

    void reset() override;
    /// The header and one row: on a small screen, the clock gets the space.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A delete key was pressed while rows were selected.
    void vexarowsdeleted();
    void selectionDidChange();

protected:
    void changeEvent(QEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void takeColorsOfDesktop();
    int titleColumn() const;
    QModelIndex titleInRowOf(const QModelIndex& index) const;
    void showColumns();
    void addHeaderMenu();
    void restoreColumnWidths();
    void storeColumnWidths();

    BatchTableModel m_model;
    BatchRowDelegate m_delegate;
    VexaBatchTableHeader* m_header = nullptr;
    std::vector<int> m_storedWidths;
    bool m_hasSelectedRows = false;
    QStringList m_identifiers; ///< of the columns always shown
    bool m_showsDurations = false;
};

} // namespace vexa
