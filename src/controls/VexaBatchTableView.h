#pragma once

#include "controls/BatchRowDelegate.h"
#include "controls/BatchTableModel.h"
#include "engine/outlets.h"

#include <QTableView>

#include <vector>

namespace vexa {

class VexaBatchTableHeader;

/// The batch list as a table of whole rows. The widths that the operator gives its columns are
/// kept in the settings.
class VexaBatchTableView : public QTableView, public BatchTable {
    Q_OBJECT

public:
    explicit VexaBatchTableView(QWidget* parent = nullptr);

    /// One key, as the character it types. False when it is not one that deletes rows, or when
    /// none are selected.
    bool handleKey(const QString& characters);
    bool handleDelete();

    /// Begins to edit the title of the only selected row.
    void editTitle();
    /// Shows how long each row takes in a column of its own, and remembers that.
    void setShowsDurations(bool shows);

    /// Finds titles.
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
    /// Also brings back the column widths.
    void setIntercellSpacing(double width, double height) override;
    void scrollToItem(const BatchItemRef& item) override;
    void markItem(const BatchItemRef& item, StripeMark mark) override;
    void clearMarks() override { m_model.clearMarks(); }

    void reset() override;
    /// The header and a row: on a small screen, the clock has the room.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A delete key was pressed with rows selected.
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
    QStringList m_identifiers; ///< of the columns that always show
    bool m_showsDurations = false;
};

} // namespace vexa
