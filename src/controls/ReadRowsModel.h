#pragma once

#include "interchange/ReadRows.h"

#include <QAbstractTableModel>

#include <cstddef>
#include <vector>

namespace vexa {

/// What each line of a text becomes, in the order of the lines: a row, or the reason for refusing
/// it.
class ReadRowsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setRows(ReadRows read);
    const ReadRows& rows() const { return m_read; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Line {
        bool isRefused;
        std::size_t place; ///< index into the rows or the refused lines
    };

    QString text(const ReadRows::Row& row, int column) const;
    QString text(const ReadRows::Refusal& refusal, int column) const;

    ReadRows m_read;
    std::vector<Line> m_lines;
};

} // namespace vexa
