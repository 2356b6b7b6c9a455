#pragma once

#include <QStyledItemDelegate>

namespace vexa {

/// Paints the cells of the batch table: their text in line with the header's titles, and in the
/// first column how far a run has come with the row.
class BatchRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// What a mark takes of the width of the first column.
    static constexpr int signWidth = 16;

    /// The share of every section that lies between two columns, in pixels.
    void setSpacing(int spacing) { m_spacing = spacing; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Fills an editor that has been opened. What is in one already stays, whatever changes in its
    /// row, a mark among it.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// Shows a text that does not fit into its cell as a whole.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    int m_spacing = 0;
};

} // namespace vexa
