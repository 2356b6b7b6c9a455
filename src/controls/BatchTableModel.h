#pragma once

#include "engine/outlets.h"

#include <QAbstractTableModel>

#include <unordered_map>

namespace vexa {

/// The shared batch list as a Qt model. Changes to the list show only after reloadData(). Columns
/// are identified by the keys of an item's fields; titles are editable.
class BatchTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The StripeMark of a row, as an integer.
    static constexpr int markRole = Qt::UserRole;
    /// The identifier of the column for a row's duration.
    inline static const QString duration = QStringLiteral("duration");

    using QAbstractTableModel::QAbstractTableModel;

    void setColumnIdentifiers(const QStringList& identifiers);
    const QStringList& columnIdentifiers() const { return m_columns; }
    void reloadData();

    void markItem(const BatchItemRef& item, StripeMark mark);
    void clearMarks();
    /// The first cell of the item's row; invalid if the item is not in the list.
    QModelIndex indexOfItem(const BatchItemRef& item) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    StripeMark markOfRow(int row) const;
    void rowsChanged(int first, int last);

    QStringList m_columns;
    int m_rows = 0;
    std::unordered_map<BatchItemRef, StripeMark> m_marks;
};

} // namespace vexa
